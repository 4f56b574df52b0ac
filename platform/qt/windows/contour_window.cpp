#include "platform/qt/windows/contour_window.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCloseEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "app/display/contour.h"
#include "app/files/ask_file.h"
#include "app/state/refusals.h"
#include "platform/painting/picture_file.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/marks.h"
#include "platform/qt/parts/widgets.h"
#include "platform/qt/plots/picture_widget.h"
#include "platform/qt/windows/contour_controls.h"

namespace velorix {
namespace {

constexpr int BarSteps = 10000;
constexpr int ListenEvery = 30;  // milliseconds, while a count runs
constexpr char PictureTip[] = "Density of the directions; the numbers below follow the mouse";

QLabel* MakeLabel(const char* name, const char* tip, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(name);
  label->setToolTip(tip);
  return label;
}

/// A line that is marked while it has a text.
void ShowNotice(QLabel& label, const QString& text) {
  MarkLabel(label, !text.isEmpty());
  label.setText(text);
}

/// What a user does, as far as it could begin something else while a count runs.
bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::TouchBegin:
    case QEvent::Close:
      return true;
    default:
      return false;
  }
}

}  // namespace

frmContour::frmContour(Velorix& velorix, QWidget* owner)
    : QWidget(owner, Qt::Window), velorix_(velorix) {
  setObjectName("frmContour");
  setWindowTitle("Contour Plot");
  setAttribute(Qt::WA_QuitOnClose, false);
  auto* row = new QHBoxLayout(this);
  QLayout* controls = MakeControls();  // first in the order of Tab
  row->addLayout(MakePicture(), 1);
  row->addLayout(controls);
  resize(ComfortableSize());
  ShowContourData(velorix_.Contour, velorix_.Session);
  ShowState();
  findChild<QPushButton*>("cmdCount")->setFocus();
}

frmContour::~frmContour() { qApp->removeEventFilter(this); }

/// All options in view beside a picture that fills its frame.
QSize frmContour::ComfortableSize() const {
  const int height = std::max(620, sizeHint().height() + controls_->HiddenHeight());
  const QSize comfortable(height * 880 / 620, height);
  return comfortable.boundedTo(screen()->availableSize()).expandedTo(QSize(880, 620));
}

/// The picture below its caption, above the levels and what the mouse points at.
QLayout* frmContour::MakePicture() {
  auto* column = new QVBoxLayout;
  caption_ = MakeLabel("lblContour", "What the picture shows", this);
  QFont bold = caption_->font();
  bold.setBold(true);
  caption_->setFont(bold);
  column->addWidget(caption_);
  stale_ = MakeLabel("lblStale", "What the density is of, where that is not in view", this);
  stale_->setMargin(2);
  stale_->setWordWrap(true);
  column->addWidget(stale_);  // empty it keeps its line, so that the picture stays in its place

  auto* border = new QFrame(this);
  border->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  auto* inside = new QVBoxLayout(border);
  inside->setContentsMargins(1, 1, 1, 1);
  picture_ = new PictureWidget(border);
  picture_->setObjectName("picContour");
  picture_->setToolTip(PictureTip);
  picture_->SetPicture(ContourPlane,
                       [this](Target& target) { DrawContourPicture(velorix_.Contour, target); });
  picture_->OnMove = [this](const PictureMouse& mouse) { FollowMouse(mouse.x, mouse.y); };
  picture_->OnLeave = [this] { cursor_->clear(); };
  inside->addWidget(picture_);
  column->addWidget(border, 1);
  clip_ = MakeLabel("picClip", "", this);  // the picture on its way to the clipboard
  clip_->hide();

  auto* below = new QHBoxLayout;
  below->addWidget(levelsTitle_ = new QLabel(this));
  levels_ = MakeLabel("lblLevels", "Contour levels, in multiples of a uniform density", this);
  levels_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  below->addWidget(levels_);
  below->addStretch(1);
  cursor_ = MakeLabel("lblCursor", "Direction and density under the mouse", this);
  below->addWidget(cursor_);
  column->addLayout(below);
  column->addLayout(MakeProgress());
  return column;
}

QLayout* frmContour::MakeProgress() {
  auto* row = new QHBoxLayout;
  const auto& options = velorix_.Contour.Options;
  auto* shown =
      MakeButton<QCheckBox>("chkProgressBar", "&Progress bar", "Show how far the count is", this);
  shown->setChecked(options.showProgress);
  bar_ = new QProgressBar(this);
  bar_->setObjectName("vbalProgressBar1");
  bar_->setToolTip("How far the count is");
  bar_->setRange(0, BarSteps);
  bar_->setTextVisible(false);
  bar_->setEnabled(options.showProgress);
  connect(shown, &QCheckBox::toggled, this, [this](bool on) {
    velorix_.Contour.Options.showProgress = on;
    bar_->setEnabled(on);
  });
  time_ = MakeLabel("lblTime", "Time of the last count", this);
  time_->setMinimumWidth(fontMetrics().horizontalAdvance("00.00 s"));
  time_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  row->addWidget(shown);
  row->addWidget(bar_, 1);
  cancel_ = AddCommand(*row, "cmdCancel", "Cancel", "Stop the count; the picture stays [Esc]",
                       &frmContour::Cancel);
  cancel_->setEnabled(false);
  row->addWidget(time_);
  return row;
}

QLayout* frmContour::MakeControls() {
  auto* column = new QVBoxLayout;
  controls_ = new ContourControls(velorix_.Contour, this);
  controls_->OnChange = [this] { Redraw(); };
  controls_->OnDisplay = [this](ContourDisplay display) {
    Work(velorix_, [&] { ChooseContourDisplay(velorix_.Contour, velorix_.Session, display); });
    ShowState();
  };
  column->addWidget(controls_, 1);
  column->addSpacing(8);
  AddCommands(*column);
  return column;
}

QPushButton* frmContour::AddCommand(QLayout& row, const char* name, const char* caption,
                                    const char* tip, void (frmContour::*run)()) {
  auto* button = MakeButton<QPushButton>(name, caption, tip, this);
  connect(button, &QPushButton::clicked, this, [this, run] { (this->*run)(); });
  row.addWidget(button);
  return button;
}

void frmContour::AddCommands(QVBoxLayout& column) {
  QPushButton* count =
      AddCommand(column, "cmdCount", "Count", "Count the density of the data in view [Return]",
                 &frmContour::Count);
  QFont bold = count->font();
  bold.setBold(true);
  count->setFont(bold);
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
    connect(new QShortcut(key, this), &QShortcut::activated, this, [this] { Count(); });
  AddCommand(column, "cmdRedraw", "&Redraw", "Draw the picture again, without a count",
             &frmContour::Redraw);
  column.addSpacing(8);
  AddCommand(column, "cmdCopyToClipboard", "Cop&y", "Copy the picture to the clipboard",
             &frmContour::CopyPicture);
  AddCommand(column, "cmdSavePicture", "Sa&ve picture", "Save the picture to a file",
             &frmContour::SavePicture);
  AddCommand(column, "cmdGrevaExport", "E&xport Kmax",
             "Write the directions of Kmax for a stereographic plotting program, to "
             "examples/grevadata.txt in the program's folder",
             &frmContour::Export);
  column.addSpacing(8);
  AddCommand(column, "cmdCLOSE", "Close", "Close this window [Esc]", &frmContour::Shut);
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] { Shut(); });
}

void frmContour::Redraw() { picture_->Redraw(); }

void frmContour::ShowState() {
  const ContourSession& contour = velorix_.Contour;
  caption_->setText(ToQString(ContourCaption(contour)));
  ShowNotice(*stale_, ToQString(ContourStaleText(contour)));
  levelsTitle_->setText(contour.Counted() ? "Levels:" : "Count (Return) computes the density.");
  levels_->setText(ToQString(ContourLevelsText(contour)));
  time_->setText(ToQString(ContourTimeText(contour)));
  const QString maximum = ToQString(ContourMaximumText(velorix_.Contour));
  levels_->setToolTip(maximum.isEmpty() ? "Contour levels, in multiples of a uniform density"
                                        : maximum);
  Redraw();
}

void frmContour::FollowMouse(double x, double y) {
  cursor_->setText(ToQString(ContourCursorText(velorix_.Contour, x, y)));
  const QString maximum = ToQString(ContourMaximumText(velorix_.Contour));
  picture_->setToolTip(IsOnContourLegend(x, y) && !maximum.isEmpty() ? maximum : PictureTip);
}

void frmContour::Count() {
  if (counting_) return;
  counting_ = true;
  cancelled_ = false;
  cancel_->setEnabled(true);
  events_.start();
  qApp->installEventFilter(this);
  Work(velorix_, [this] {
    CountContour(velorix_.Contour, velorix_.Session, velorix_.Dialogs,
                 [this](double share) { return GoOn(share); });
  });
  qApp->removeEventFilter(this);
  counting_ = false;
  cancel_->setEnabled(false);
  bar_->setValue(0);
  ShowState();
}

/// Shows the share of the work that is done and listens whether to go on.
bool frmContour::GoOn(double share) {
  if (velorix_.Contour.Options.showProgress) bar_->setValue(static_cast<int>(share * BarSteps));
  if (events_.elapsed() < ListenEvery) return !cancelled_;
  ShowBusyCursor();
  QCoreApplication::processEvents();
  events_.restart();
  return !cancelled_;
}

bool frmContour::eventFilter(QObject* watched, QEvent* event) {
  const bool widget = watched->isWidgetType() || event->type() == QEvent::Shortcut;
  if (!counting_ || !widget || watched == cancel_ || !IsInput(event->type())) return false;
  const bool escape =
      event->type() == QEvent::Shortcut
          ? static_cast<QShortcutEvent*>(event)->key() == QKeySequence(Qt::Key_Escape)
          : event->type() == QEvent::KeyPress &&
                static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (escape || (event->type() == QEvent::Close && watched == this)) Cancel();
  event->ignore();
  return true;
}

void frmContour::Cancel() { cancelled_ = true; }

void frmContour::CopyPicture() {
  clip_->setPixmap(picture_->grab());
  QApplication::clipboard()->setPixmap(clip_->pixmap());
}

void frmContour::SavePicture() {
  Work(velorix_, [&] {
    FileQuestion question = SaveQuestion(velorix_.Session, "Save Picture");
    question.Filter = PictureFilter();
    const auto answer = AskWhereToSave(velorix_.Dialogs, question);
    if (!answer) return;
    constexpr double Scale = 3;  // pixels of a unit
    const Outcome outcome =
        WritePicture(answer->Filename, ContourPlane, Scale,
                     [this](Target& target) { DrawContourPicture(velorix_.Contour, target); });
    if (!outcome) ReportRefusal(velorix_.Views, velorix_.Log, outcome.Text);
    Show(velorix_.Dialogs, outcome);
  });
}

void frmContour::Export() {
  Work(velorix_, [this] {
    GrevaExport(velorix_.Session, velorix_.Host.AppFolder, velorix_.Dialogs, velorix_.Views,
                velorix_.Log);
  });
}

void frmContour::Shut() { close(); }

void frmContour::closeEvent(QCloseEvent* event) {
  QWidget::closeEvent(event);
  if (OnClose) OnClose();
}

}  // namespace velorix
