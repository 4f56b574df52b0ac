#include "platform/qt/plots/stereo_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/commands/view_choices.h"
#include "app/display/symbol_names.h"
#include "app/tables/record_grid.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/widgets.h"
#include "platform/qt/plots/plot_mouse.h"
#include "platform/qt/tables/record_model.h"

namespace velorix {

/// What stands below the group of a check box.
enum class Below { Nothing, ColourCoding, FoliationCodes, LineationCodes };

/// A check box of the property frame: `Heading` begins a group, `Back` colours it.
struct OptionCheck {
  const char *Heading, *Name, *Caption, *Tip;
  Colour Back;
  bool& (*Field)(StereoOptions&);
  velorix::Below Below = Below::Nothing;
};

namespace {

constexpr Colour NoBack = 0xFFFFFFFF, KmaxBack = 0xC0C0FF, KintBack = 0xC0FFC0, KminBack = 0xFFC0C0,
                 FoliBack = 0xFFFFC0;

using O = StereoOptions;

// clang-format off
constexpr OptionCheck Checks[] = {
    {"Data", "chkData", "Directions", "Draw the principal directions of the records", NoBack, [](O& o) -> bool& { return o.showData; }},
    {"", "chkDataEllipses", "Ellipses", "Confidence ellipse of each direction", NoBack, [](O& o) -> bool& { return o.showDataEllipses; }},
    {"", "chkDataLines", "Lines", "Connect the directions of each axis in store order", NoBack, [](O& o) -> bool& { return o.showDataLines; }},
    {"Mean", "chkMean", "Directions", "Principal directions of the mean tensor", NoBack, [](O& o) -> bool& { return o.showMean; }},
    {"", "chkMeanEllipses", "Ellipses", "Confidence ellipses of the mean directions, from five records on", NoBack, [](O& o) -> bool& { return o.showMeanEllipses; }},
    {"Bootstrap", "chkBootStrap", "Cloud", "Directions of the bootstrap replicates, up to 100 records", NoBack, [](O& o) -> bool& { return o.showBootstrapCloud; }},
    {"", "chkBootstrapEllips", "Contours", "Bootstrap confidence contours, up to 100 records", NoBack, [](O& o) -> bool& { return o.showBootstrapContours; }},
    {"Axes", "chkK(1)", "Kmax", "Show Kmax, in data, mean and legend", KmaxBack, [](O& o) -> bool& { return o.showAxis[1]; }},
    {"", "chkGC(1)", "Circle", "Great circles perpendicular to Kmax", KmaxBack, [](O& o) -> bool& { return o.showGreatCircle[1]; }},
    {"", "chkK(2)", "Kint", "Show Kint, in data, mean and legend", KintBack, [](O& o) -> bool& { return o.showAxis[2]; }},
    {"", "chkGC(2)", "Circle", "Great circles perpendicular to Kint", KintBack, [](O& o) -> bool& { return o.showGreatCircle[2]; }},
    {"", "chkK(3)", "Kmin", "Show Kmin, in data, mean and legend", KminBack, [](O& o) -> bool& { return o.showAxis[3]; }},
    {"", "chkGC(3)", "Circle", "Great circles perpendicular to Kmin", KminBack, [](O& o) -> bool& { return o.showGreatCircle[3]; }},
    {"Texts", "chkCaption(0)", "Captions", "Coordinate system, projection and number of records beside the net", NoBack, [](O& o) -> bool& { return o.showCaptions; }},
    {"", "chkCaption(1)", "Legend", "Legend of axes, foliations and lineations", NoBack, [](O& o) -> bool& { return o.showLegend; }},
    {"Colours", "chkStereoColorCoding", "By value", "Colour the symbols by a parameter", NoBack, [](O& o) -> bool& { return o.colourByValue; }, Below::ColourCoding},
    {"Foliations", "chkFoli(0)", "Planes", "Draw the foliations chosen below, outside specimen coordinates", FoliBack, [](O& o) -> bool& { return o.showPlanes; }},
    {"", "chkFoli(1)", "Circles", "Planes as great circles", FoliBack, [](O& o) -> bool& { return o.planesAsCircles; }},
    {"", "chkFoli(2)", "Poles", "Planes as poles", FoliBack, [](O& o) -> bool& { return o.planesAsPoles; }},
    {"", "chkFoli(3)", "Strikes", "Planes as strike sticks on the rim", FoliBack, [](O& o) -> bool& { return o.planesAsStrikes; }, Below::FoliationCodes},
    {"Lineations", "chkFoli(4)", "Lines", "Draw the lineations chosen below, outside specimen coordinates", FoliBack, [](O& o) -> bool& { return o.showLines; }, Below::LineationCodes},
};
// clang-format on

constexpr PlotNames Names = {
    "Stereonet",
    "picStereo",
    "cmdStereoProperties",
    "fraStereoProperties",
    "Principal directions on the lower hemisphere. Draw a box to select records. "
    "Hold CTRL-Kmax, ALT-Kint, SHIFT-Kmin",
    "Options of the stereonet"};

QLabel* MakeHeading(const char* text, QWidget* parent) {
  auto* heading = new QLabel(text, parent);
  heading->setForegroundRole(QPalette::PlaceholderText);
  return heading;
}

QCheckBox* MakeCheck(const OptionCheck& check, QWidget* parent) {
  auto* box = new QCheckBox(check.Caption, parent);
  box->setObjectName(check.Name);
  box->setToolTip(check.Tip);
  if (check.Back == NoBack) return box;
  QPalette palette = box->palette();
  palette.setColor(QPalette::Window, ToQColor(check.Back));
  palette.setColor(QPalette::WindowText, Qt::black);
  palette.setColor(QPalette::Base, Qt::white);
  palette.setColor(QPalette::Text, Qt::black);
  box->setPalette(palette);
  box->setBackgroundRole(QPalette::Window);
  box->setAutoFillBackground(true);
  return box;
}

}  // namespace

StereoPanel::StereoPanel(Velorix& velorix, QWidget* parent)
    : PlotPanel(Names, velorix.Host.AppFolder, parent), velorix_(velorix) {
  AddChecks();
  Options->addStretch(1);
  Picture->SetPicture(StereoPlane(velorix.Plots.Stereo), [this](Target& target) {
    const Session& session = velorix_.Session;
    DrawStereo(session.Records, session.CoorSys, target, StereoGeometry{}, velorix_.Plots.Stereo,
               session.ReImMode, velorix_.GroupStats, session.Settings, velorix_.Plots.Marks);
    DrawLegendBelow(target, StereoPlane(velorix_.Plots.Stereo), velorix_.Plots.Marks,
                    StereoLegend(velorix_.Plots.Stereo, velorix_.Plots.Marks));
  });
  QLabel* dec = AddReadOut("lblStereoCursorPos(1)", "Declination under the mouse");
  QLabel* inc = AddReadOut("lblStereoCursorPos(2)", "Inclination under the mouse");
  AttachMouse(*Picture, {.ReadOut =
                             [=](double x, double y) {
                               const StereoReadOut read = ReadStereo(x, y);
                               dec->setText(ToQString(read.dec));
                               inc->setText(ToQString(read.inc));
                             },
                         .Leave =
                             [=] {
                               dec->clear();
                               inc->clear();
                             },
                         .Name =
                             [this](const Point& place, double zoom) {
                               const PlotChoices& plots = velorix_.Plots;
                               return NameInStereo(velorix_.Session, plots.Stereo,
                                                   velorix_.GroupStats, plots.Marks, place, zoom);
                             },
                         .Select =
                             [this](const MouseBox& box, int keys) {
                               Work(velorix_, [&] {
                                 const auto hit = RecordsInStereo(velorix_.Session,
                                                                  velorix_.Plots.Stereo, box, keys);
                                 if (hit) SelectRecords(velorix_, *hit);
                               });
                             },
                         .SelectIn =
                             [this](const Lasso& lasso, int keys) {
                               Work(velorix_, [&] {
                                 const auto hit = RecordsInStereo(
                                     velorix_.Session, velorix_.Plots.Stereo, lasso, keys);
                                 if (hit) SelectRecords(velorix_, *hit);
                               });
                             },
                         .LassoOn = [this] { return velorix_.Plots.Lasso; }});
  AddPageBox("chkStereo", velorix.Plots.OnPage[PlotKind::Stereonet]);
  Picture->OnFault = [this](const Fault& fault) {
    velorix_.Log.DebugPrint(std::string("Error: stereonet: ") + fault.what());
    velorix_.Views.ShowStatus(std::string("Stereonet: ") + fault.what());
  };
}

void StereoPanel::ChangeOption(const std::function<void(StereoOptions&)>& change) {
  Work(velorix_, [&] {
    ChangePlot(velorix_, PlotKind::Stereonet, [&](PlotChoices& plots) { change(plots.Stereo); });
  });
}

/// The groups of check boxes, two boxes a row.
void StereoPanel::AddChecks() {
  QGridLayout* group = nullptr;
  for (const OptionCheck& check : Checks) {
    if (*check.Heading) {
      if (group) Options->addSpacing(4);
      Options->addWidget(MakeHeading(check.Heading, Frame));
      group = new QGridLayout;
      group->setSpacing(3);
      group->setColumnStretch(0, 1);
      group->setColumnStretch(1, 1);
      Options->addLayout(group);
    }
    AddCheck(check, *group);
  }
}

void StereoPanel::AddCheck(const OptionCheck& check, QGridLayout& group) {
  QCheckBox* box = MakeCheck(check, Frame);
  box->setChecked(check.Field(velorix_.Plots.Stereo));
  connect(box, &QCheckBox::toggled, this, [this, &check](bool on) {
    ChangeOption([&](StereoOptions& options) { check.Field(options) = on; });
  });
  const int place = group.count();
  group.addWidget(box, place / 2, place % 2);
  switch (check.Below) {
    case Below::Nothing:
      break;
    case Below::ColourCoding:
      AddColourCoding(group);
      connect(box, &QCheckBox::toggled, this, [this](bool on) { EnableColourCoding(on); });
      EnableColourCoding(box->isChecked());
      break;
    case Below::FoliationCodes:
      lstFoli_ = AddCodes("lstFoli", "Foliations shown, by their codes", ShowFoliation);
      break;
    case Below::LineationCodes:
      lstLine_ = AddCodes("lstLine", "Lineations shown, by their codes", ShowLineation);
      break;
  }
}

/// The list of parameters and the two ways of colouring, below their check box.
void StereoPanel::AddColourCoding(QGridLayout& group) {
  parameters_ = MakeList("odclStereoColorCoding", "Parameter that colours the symbols", 9, Frame);
  ShowGridHeader();
  connect(parameters_, &QComboBox::activated, this, [this](int index) {
    ChangeOption([&](StereoOptions& options) {
      options.colourParameter = PlotColumns[static_cast<std::size_t>(index)];
    });
  });
  group.addWidget(parameters_, 0, 1);
  constexpr struct {
    ColourRamp Ramp;
    const char *Name, *Caption, *Tip;
  } ways[] = {
      {ColourRamp::PerAxis, "optStereoColorCoding(0)", "Per axis",
       "A ramp from white for each axis"},
      {ColourRamp::One, "optStereoColorCoding(1)", "One ramp",
       "One ramp from blue to red for all axes"},
  };
  int column = 0;
  for (const auto& way : ways) {
    auto* option = new QRadioButton(way.Caption, Frame);
    option->setObjectName(way.Name);
    option->setToolTip(way.Tip);
    option->setChecked(velorix_.Plots.Stereo.colourRamp == way.Ramp);
    connect(option, &QRadioButton::toggled, this, [this, ramp = way.Ramp](bool on) {
      if (on) ChangeOption([&](StereoOptions& options) { options.colourRamp = ramp; });
    });
    group.addWidget(option, 1, column++);
    colourWays_.push_back(option);
  }
}

void StereoPanel::EnableColourCoding(bool on) {
  parameters_->setEnabled(on);
  for (QWidget* way : colourWays_) way->setEnabled(on);
}

void StereoPanel::ShowGridHeader() {
  const int chosen = std::max(parameters_->currentIndex(), 0);
  parameters_->clear();
  for (const Column column : PlotColumns) {
    const char* blank = column == Column::Number ? " " : "";
    AddEntry(*parameters_, blank + ToQString(ColumnName(column, velorix_.Session.Settings)),
             TintOf(column));
  }
  parameters_->setCurrentIndex(chosen);
}

QListWidget* StereoPanel::AddCodes(const char* name, const char* tip,
                                   void (*choose)(Velorix&, int, bool)) {
  auto* list = new QListWidget(Frame);
  list->setObjectName(name);
  list->setToolTip(tip);
  list->setAccessibleName(tip);
  list->setFixedHeight(3 * (list->fontMetrics().height() + 6));
  list->setMinimumWidth(90);
  list->setSpacing(1);
  list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  connect(list, &QListWidget::itemChanged, this, [this, list, choose](QListWidgetItem* item) {
    if (filling_) return;
    Work(velorix_, [&] { choose(velorix_, list->row(item), item->checkState() == Qt::Checked); });
  });
  Options->addWidget(list);
  return list;
}

void StereoPanel::FillCodes(QListWidget& list, const CodeList& codes) {
  filling_ = true;
  list.clear();
  for (const CodeEntry& entry : codes.Entries) {
    auto* item = new QListWidgetItem(ToQString(entry.Text), &list);
    item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    item->setCheckState(entry.Selected ? Qt::Checked : Qt::Unchecked);
  }
  filling_ = false;
}

void StereoPanel::ShowCodeLists() {
  FillCodes(*lstFoli_, velorix_.Lists.foliationsShown);
  FillCodes(*lstLine_, velorix_.Lists.lineationsShown);
}

void StereoPanel::Redraw() {
  Picture->SetPlane(WithLegend(StereoPlane(velorix_.Plots.Stereo), velorix_.Plots.Marks));
  Picture->Redraw();
}

}  // namespace velorix
