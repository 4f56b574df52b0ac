#include "platform/qt/windows/figure_window.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QFontComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QToolButton>
#include <cmath>

#include "app/commands/picture_commands.h"
#include "app/files/ask_file.h"
#include "app/pictures/style_file.h"
#include "app/state/refusals.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/command_row.h"
#include "platform/qt/parts/widgets.h"
#include "platform/qt/plots/picture_widget.h"

namespace velorix {
namespace {

constexpr char NowCaption[] = "As now";

/// What a control says for a word of a style file.
QString CaptionOf(const std::string& word) {
  if (word == StyleNow) return NowCaption;
  QString caption = ToQString(word);
  caption[0] = caption[0].toUpper();
  return caption;
}

}  // namespace

frmFigure::frmFigure(Velorix& velorix, QWidget* owner) : QDialog(owner), velorix_(velorix) {
  setObjectName("frmFigure");
  setWindowTitle("Figure Options");
  style_ = kept_ = KeptStyle(velorix);

  auto* controls = new QWidget(this);
  auto* form = new QFormLayout(controls);
  for (const StyleKey& key : StyleKeys()) AddControl(*form, key);
  auto* scrolled = new QScrollArea(this);
  scrolled->setWidget(controls);
  scrolled->setWidgetResizable(true);
  scrolled->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scrolled->setMinimumWidth(controls->sizeHint().width() + 30);

  picture_ = new PictureWidget(this);
  picture_->setObjectName("picFigure");
  picture_->setAccessibleName("Figure");
  picture_->OnFault = [this](const Fault& fault) {
    velorix_.Log.DebugPrint(std::string("Error: figure: ") + fault.what());
    size_->setText(fault.what());
  };
  auto* preview = new QScrollArea(this);
  preview->setWidget(picture_);
  preview->setAlignment(Qt::AlignCenter);
  size_ = new QLabel(this);
  size_->setObjectName("lblFigureSize");

  auto* right = new QVBoxLayout;
  right->addWidget(preview, 1);
  right->addWidget(size_);
  auto* row = new QHBoxLayout;
  row->addWidget(scrolled);
  row->addLayout(right, 1);
  auto* column = new QVBoxLayout(this);
  column->addLayout(row, 1);
  const auto work = [this](void (frmFigure::*what)()) {
    return [this, what] { Work(velorix_, [this, what] { (this->*what)(); }); };
  };
  column->addLayout(
      MakeCommandRow(*this, "Close the figure options [Esc]",
                     {{"cmdAsNow", "As &now", "Every option as the page has it",
                       [this] {
                         style_ = FigureStyle();
                         ShowStyle();
                       }},
                      {"cmdLoadStyle", "&Load style...", "Take the options from a style file",
                       work(&frmFigure::LoadStyle)},
                      {"cmdSaveStyle", "Save s&tyle...", "Write the options into a style file",
                       work(&frmFigure::SaveStyle)}},
                     {{"cmdSave", "&Save figure...", "Write the figure into a file",
                       work(&frmFigure::SaveFigure)}}));
  const QSize most = screen()->availableGeometry().size() - QSize(40, 60);
  resize(std::min(1150, most.width()), std::min(820, most.height()));
  ShowStyle();
}

frmFigure::~frmFigure() {
  if (style_ == kept_) return;
  KeepStyle(velorix_, style_);
  SetAxes(velorix_, style_.Axes);
}

void frmFigure::AddControl(QFormLayout& form, const StyleKey& key) {
  QWidget* control = nullptr;
  if (std::holds_alternative<bool FigureStyle::*>(key.Value)) {
    auto* box = new QCheckBox(this);
    show_.push_back([this, box, &key] { box->setChecked(ValueText(style_, key) == StyleYes); });
    connect(box, &QCheckBox::toggled, this,
            [this, &key](bool on) { Take(key, on ? StyleYes : StyleNo); });
    control = box;
  } else if (const std::vector<std::string> words = WordsOf(key); !words.empty()) {
    control = MakeWords(key, words);
  } else if (std::holds_alternative<std::string FigureStyle::*>(key.Value)) {
    control = MakeFont(key);
  } else if (std::holds_alternative<StyleKey::OwnColour>(key.Value)) {
    control = MakeColour(key);
  } else {
    control = MakeNumber(key);
  }
  control->setObjectName(ToQString(std::string("style-") + key.Key));
  control->setToolTip(ToQString(key.Help));
  form.addRow(ToQString(key.Caption), control);
}

QWidget* frmFigure::MakeWords(const StyleKey& key, const std::vector<std::string>& words) {
  auto* list = new QComboBox(this);
  for (const std::string& word : words) list->addItem(CaptionOf(word), ToQString(word));
  show_.push_back([this, list, &key] {
    list->setCurrentIndex(list->findData(ToQString(ValueText(style_, key))));
  });
  connect(list, &QComboBox::currentIndexChanged, this,
          [this, list, &key] { Take(key, list->currentData().toString().toStdString()); });
  return list;
}

/// A number that is typed or chosen. One that may not stand there is red, and changes nothing.
QWidget* frmFigure::MakeNumber(const StyleKey& key) {
  auto* list = new QComboBox(this);
  list->setEditable(true);
  const auto* bounded = std::get_if<StyleKey::Bounded>(&key.Value);
  if (!bounded || bounded->HasNow) list->addItem(NowCaption);
  list->addItems(QString(key.Usual).split(' ', Qt::SkipEmptyParts));
  show_.push_back([this, list, &key] {
    const std::string text = ValueText(style_, key);
    list->setEditText(text == StyleNow ? NowCaption : ToQString(text));
  });
  connect(list, &QComboBox::editTextChanged, this, [this, list, &key](const QString& text) {
    const QString word = text.trimmed().compare(NowCaption, Qt::CaseInsensitive) == 0
                             ? StyleNow
                             : text.trimmed().replace(',', '.');
    const bool good = Take(key, word.toStdString());
    QPalette colours = list->lineEdit()->palette();
    colours.setColor(QPalette::Text, good ? palette().color(QPalette::Text) : QColor(Qt::red));
    list->lineEdit()->setPalette(colours);
    list->setToolTip(ToQString(good ? key.Help : ChoicesText(key)));
  });
  return list;
}

QWidget* frmFigure::MakeColour(const StyleKey& key) {
  auto* box = new QWidget(this);
  auto* text = new QLabel(box);
  auto* choose = new QToolButton(box);
  auto* back = new QToolButton(box);
  choose->setText("...");
  choose->setToolTip("Choose a colour");
  choose->setAccessibleName(QString(key.Caption) + ", choose a colour");
  back->setText(NowCaption);
  back->setToolTip("The colour as it is now");
  back->setAccessibleName(QString(key.Caption) + ", as now");
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(text, 1);
  row->addWidget(choose);
  row->addWidget(back);
  show_.push_back([this, text, &key] {
    const QString colour = ToQString(ValueText(style_, key));
    text->setText(colour == StyleNow ? NowCaption : colour);
    text->setStyleSheet(colour == StyleNow
                            ? QString()
                            : QString("border-left: 14px solid %1; padding-left: 4px").arg(colour));
  });
  const auto take = [this, &key](const QString& colour) {
    Take(key, colour.toStdString());
    ShowStyle();
  };
  connect(choose, &QToolButton::clicked, this, [this, take, &key] {
    const QColor former(ToQString(ValueText(style_, key)));
    const QColor colour = QColorDialog::getColor(former, this, ToQString(key.Caption));
    if (!colour.isValid()) return;
    style_.Colours = FigureColours::Own;
    take(colour.name());
  });
  connect(back, &QToolButton::clicked, this, [take] { take(StyleNow); });
  return box;
}

QWidget* frmFigure::MakeFont(const StyleKey& key) {
  auto* fonts = new QFontComboBox(this);
  show_.push_back([this, fonts, &key] { fonts->setEditText(ToQString(ValueText(style_, key))); });
  connect(fonts, &QComboBox::editTextChanged, this,
          [this, &key](const QString& text) { Take(key, text.trimmed().toStdString()); });
  return fonts;
}

/// Takes what a control says; false when it may not stand there.
bool frmFigure::Take(const StyleKey& key, const std::string& text) {
  if (showing_) return true;
  if (!TakeValueText(style_, key, text)) return false;
  ShowFigure();
  return true;
}

void frmFigure::ShowStyle() {
  showing_ = true;
  for (const auto& show : show_) show();
  showing_ = false;
  ShowFigure();
}

/// The figure as large as it will be on paper.
void frmFigure::ShowFigure() {
  const PlaneSize plane = FigurePlane(PageOf(velorix_), style_);
  picture_->SetPicture(plane,
                       [this](Target& target) { DrawFigure(PageOf(velorix_), style_, target); });
  const double scale = screen()->physicalDotsPerInch() / FigureUnitsPerInch;
  picture_->setFixedSize(static_cast<int>(std::lround(plane.width * scale)),
                         static_cast<int>(std::lround(plane.height * scale)));
  picture_->Redraw();
  const auto mm = [](int units) {
    return QString::number(units * MmPerInch / FigureUnitsPerInch, 'f', 1);
  };
  size_->setText(QString("%1 x %2 mm").arg(mm(plane.width), mm(plane.height)));
}

void frmFigure::LoadStyle() {
  const auto path = AskForStyleFile(velorix_.Session, velorix_.Dialogs, FileAction::Open);
  if (!path) return;
  const Outcome read = ReadStyleFile(*path, style_);
  if (!read) ReportRefusal(velorix_.Views, velorix_.Log, read.Title + "\n" + read.Text);
  velorix::Show(velorix_.Dialogs, read);
  ShowStyle();
}

void frmFigure::SaveStyle() {
  if (const auto path = AskForStyleFile(velorix_.Session, velorix_.Dialogs, FileAction::Save)) {
    WriteStyleFile(*path, style_);
    ShowWritten(velorix_.Views, *path);
  }
}

void frmFigure::SaveFigure() { velorix::SaveFigure(velorix_, style_); }

}  // namespace velorix
