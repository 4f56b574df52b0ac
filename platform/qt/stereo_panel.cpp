#include "platform/qt/stereo_panel.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include "app/display.h"
#include "platform/qt/busy_cursor.h"
#include "platform/qt/widgets.h"

namespace velorix {
namespace {

/// A check box of the property frame: `Heading` begins a group, `Back` colours it.
struct OptionCheck {
  const char *Heading, *Name, *Caption, *Tip;
  Colour Back;
  bool& (*Field)(StereoOptions&);
};

constexpr Colour NoBack = 0xFFFFFFFF;

// clang-format off
constexpr OptionCheck Checks[] = {
    {"Data", "chkData", "Directions", "Draw the principal directions of the records", NoBack, [](StereoOptions& o) -> bool& { return o.chkData; }},
    {"Axes", "chkK(1)", "Kmax", "Show Kmax, in data and legend", 0xC0C0FF, [](StereoOptions& o) -> bool& { return o.chkK[1]; }},
    {"", "chkK(2)", "Kint", "Show Kint, in data and legend", 0xC0FFC0, [](StereoOptions& o) -> bool& { return o.chkK[2]; }},
    {"", "chkK(3)", "Kmin", "Show Kmin, in data and legend", 0xFFC0C0, [](StereoOptions& o) -> bool& { return o.chkK[3]; }},
    {"Texts", "chkCaption(0)", "Captions", "Coordinate system, projection and number of records beside the net", NoBack, [](StereoOptions& o) -> bool& { return o.chkCaption[0]; }},
    {"", "chkCaption(1)", "Legend", "Legend of axes, foliations and lineations", NoBack, [](StereoOptions& o) -> bool& { return o.chkCaption[1]; }},
    {"Foliations", "chkFoli(0)", "Planes", "Foliations in the legend", 0xFFFFC0, [](StereoOptions& o) -> bool& { return o.chkFoli[0]; }},
    {"", "chkFoli(1)", "Great circles", "Planes as great circles", 0xFFFFC0, [](StereoOptions& o) -> bool& { return o.chkFoli[1]; }},
    {"", "chkFoli(2)", "Poles", "Planes as poles", 0xFFFFC0, [](StereoOptions& o) -> bool& { return o.chkFoli[2]; }},
    {"", "chkFoli(3)", "Strikes", "Planes as strike sticks on the rim", 0xFFFFC0, [](StereoOptions& o) -> bool& { return o.chkFoli[3]; }},
    {"Lineations", "chkFoli(4)", "Lines", "Lineations in the legend", 0xFFFFC0, [](StereoOptions& o) -> bool& { return o.chkFoli[4]; }},
};
// clang-format on

constexpr PlotNames Names = {"Stereonet",
                             "picStereo",
                             "cmdStereoProperties",
                             "fraStereoProperties",
                             "Principal directions on the lower hemisphere",
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
  Picture->SetPicture(StereoPlane(velorix.Stereo), [this](Target& target) {
    const Session& session = velorix_.Session;
    DrawStereo(session.Records, session.CoorSys, target, StereoGeometry{}, velorix_.Stereo,
               session.ReImMode);
  });
  Picture->OnFault = [this](const Fault& fault) {
    velorix_.Log.DebugPrint(std::string("Error: stereonet: ") + fault.what());
    velorix_.Views.ShowStatus(std::string("Stereonet: ") + fault.what());
  };
}

void StereoPanel::AddChecks() {
  for (const OptionCheck& check : Checks) {
    if (*check.Heading) {
      if (Options->count()) Options->addSpacing(6);
      Options->addWidget(MakeHeading(check.Heading, Frame));
    }
    QCheckBox* box = MakeCheck(check, Frame);
    box->setChecked(check.Field(velorix_.Stereo));
    connect(box, &QCheckBox::toggled, this, [this, &check](bool on) {
      check.Field(velorix_.Stereo) = on;
      Work(velorix_, [&] { velorix_.Views.RedrawStereo(); });
    });
    Options->addWidget(box);
    if (box->objectName() == "chkFoli(3)")
      lstFoli_ = AddCodes("lstFoli", "Foliations shown, by their codes", ShowFoliation);
    if (box->objectName() == "chkFoli(4)")
      lstLine_ = AddCodes("lstLine", "Lineations shown, by their codes", ShowLineation);
  }
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
  FillCodes(*lstFoli_, velorix_.Lists.lstFoli);
  FillCodes(*lstLine_, velorix_.Lists.lstLine);
}

void StereoPanel::Redraw() {
  Picture->SetPlane(StereoPlane(velorix_.Stereo));
  Picture->Redraw();
}

}  // namespace velorix
