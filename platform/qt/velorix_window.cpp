#include "platform/qt/velorix_window.h"

#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

#include "app/commands.h"
#include "app/display.h"
#include "app/open_flow.h"
#include "app/startup.h"
#include "platform/qt/about_window.h"
#include "platform/qt/busy_cursor.h"
#include "platform/qt/column_plots.h"
#include "platform/qt/grid_panel.h"
#include "platform/qt/group_statistics_window.h"
#include "platform/qt/stereo_panel.h"
#include "platform/qt/view_lists.h"
#include "platform/qt/widgets.h"
#include "text/numbers.h"

namespace velorix {
namespace {

constexpr int StatusTime = 10000;  // milliseconds

QSplitter* MakeSplitter(Qt::Orientation orientation, QWidget* parent) {
  auto* splitter = new QSplitter(orientation, parent);
  splitter->setChildrenCollapsible(false);
  splitter->setHandleWidth(7);
  return splitter;
}

/// A button that shows and hides `panel`, which starts hidden.
QToolButton* MakePanelButton(const char* name, const char* text, const char* tip, QWidget* panel,
                             QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setObjectName(name);
  button->setText(text);
  button->setToolTip(tip);
  button->setCheckable(true);
  button->setFocusPolicy(Qt::StrongFocus);
  panel->hide();
  QObject::connect(button, &QToolButton::toggled, panel, &QWidget::setVisible);
  return button;
}

std::vector<std::string> LocalFiles(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile())
      paths.push_back(QDir::toNativeSeparators(url.toLocalFile()).toStdString());
  return paths;
}

}  // namespace

frmVelorix::frmVelorix() { setObjectName("frmVelorix"); }

frmVelorix::~frmVelorix() = default;

void frmVelorix::Load(Velorix& velorix) {
  velorix_ = &velorix;
  setWindowIcon(OwnIcon("velorix"));
  setAcceptDrops(true);
  bars_.Build(*this, *velorix_);
  auto* centre = new QWidget(this);
  auto* rows = new QVBoxLayout(centre);
  rows->setContentsMargins(6, 4, 6, 2);
  rows->setSpacing(4);
  QWidget* views = MakeViews();
  rows->addWidget(MakeTopRow());
  rows->addWidget(views, 1);
  setCentralWidget(centre);
  MakeStatusBar();
  resize(1280, 800);
  statusBar()->showMessage("Open a data file with Ctrl+O, or drop one on this window.");

  ResetSession(*velorix_);
  ShowCodeLists();
  RefreshViews(*velorix_);
  DisplayFormCaption(*velorix_);
}

QWidget* frmVelorix::MakeTopRow() {
  auto* top = new QWidget(this);
  auto* row = new QHBoxLayout(top);
  row->setContentsMargins(0, 0, 0, 0);
  lists_ = new ViewLists(*velorix_, top);
  row->addWidget(lists_);
  row->addStretch(1);
  row->addWidget(MakePanelButton("cmdColumnPlots", "Histogram, XY plots",
                                 "Show or hide the histogram and the XY plots", column_, top));
  row->addWidget(MakePanelButton("cmdPairPlots", "Plots 1, 2",
                                 "Show or hide the two plots of parameter pairs", pairs_, top));
  return top;
}

/// The record grid, the stereonet, below them the plots of pairs, at the right the other plots.
QWidget* frmVelorix::MakeViews() {
  QSplitter* whole = MakeSplitter(Qt::Horizontal, this);
  QSplitter* left = MakeSplitter(Qt::Vertical, whole);
  main_ = MakeSplitter(Qt::Horizontal, left);
  grid_ = new GridPanel(*velorix_, main_);
  stereo_ = new StereoPanel(*velorix_, main_);
  pairs_ = MakeSplitter(Qt::Horizontal, left);
  column_ = MakeSplitter(Qt::Vertical, whole);
  plots_ = std::make_unique<ColumnPlots>(*velorix_, column_, pairs_);

  main_->setStretchFactor(0, 0);
  main_->setStretchFactor(1, 1);
  main_->setSizes({GridPanel::Narrow, 1000});
  left->setStretchFactor(0, 1);
  left->setStretchFactor(1, 0);
  left->setSizes({500, 200});
  whole->setStretchFactor(0, 1);
  whole->setStretchFactor(1, 0);
  whole->setSizes({850, 430});
  grid_->OnWiden = [this](int width) { Widen(width); };
  return whole;
}

void frmVelorix::Widen(int width) {
  main_->setSizes({width, main_->width() - main_->handleWidth() - width});
}

void frmVelorix::MakeStatusBar() {
  counts_ = new QLabel(this);
  counts_->setObjectName("lblRecords");
  counts_->setToolTip("Records in view, in the store, and selected");
  startTime_ = new QLabel(this);
  startTime_->setObjectName("picStat(2)");
  startTime_->setToolTip("Seconds that the start took");
  statusBar()->addPermanentWidget(counts_);
  statusBar()->addPermanentWidget(startTime_);
}

void frmVelorix::ShowStartTime(float seconds) {
  startTime_->setText(ToQString(FormatNumber(seconds, "0.0")));
}

void frmVelorix::SetCaption(const std::string& caption) {
  // "[*]" in a title is the toolkit's place for a mark; doubled it is itself.
  setWindowTitle(ToQString(caption).replace("[*]", "[*][*]"));
  if (velorix_->Session.RecordCount() > 0) statusBar()->clearMessage();
}

int frmVelorix::CaptionRoom() {
  constexpr int Buttons = 160, Rest = 30;  // pixels for the frame's buttons; title and count
  return std::max(20, (width() - Buttons) / fontMetrics().averageCharWidth() - Rest);
}

void frmVelorix::ShowChoices() {
  ShowBusyCursor();
  bars_.ShowChoices();
  lists_->ShowChoices();
}

void frmVelorix::ShowCodeLists() {
  ShowBusyCursor();
  lists_->ShowCodeLists();
  stereo_->ShowCodeLists();
}

void frmVelorix::ShowGridHeader() {
  grid_->ShowHeader();
  plots_->ShowGridHeader();
  stereo_->ShowGridHeader();
  if (group_) group_->AnisoFacName_Show();
}

void frmVelorix::FillGrid() {
  ShowBusyCursor();
  grid_->FillGrid();
}

void frmVelorix::RedrawStereo() {
  stereo_->Redraw();
  CountRecords();
}

void frmVelorix::CountRecords() {
  int selected = 0;
  for (const SpecimenRecord& record : velorix_->Session.Records) selected += record.Selected;
  counts_->setText(QString("%1 of %2 records in view, %3 selected")
                       .arg(grid_->RowCount())
                       .arg(velorix_->Session.RecordCount())
                       .arg(selected));
}

void frmVelorix::ShowWindows() {
  const bool open = velorix_->Windows.GroupStatistics;
  if (open && !group_) {
    group_ = new frmGroupStatistics(*velorix_, this);
    group_->OnClose = [this] {
      Work(*velorix_, [this] {
        velorix_->Windows.GroupStatistics = false;
        ShowWindows();
        ShowChoices();
      });
    };
    group_->show();
  } else if (!open && group_) {
    group_->OnClose = nullptr;
    group_->close();
    group_->deleteLater();
    group_ = nullptr;
  }
}

void frmVelorix::RefreshGroupStatistics() {
  if (group_) group_->AnisoView_DisplayGroupStatistics();
}

void frmVelorix::ShowAbout() {
  frmAbout about(this);
  about.exec();
}

void frmVelorix::Exit() { close(); }

void frmVelorix::ShowStatus(const std::string& text) {
  statusBar()->showMessage(ToQString(text).replace('\n', ' '), StatusTime);
}

void frmVelorix::closeEvent(QCloseEvent* event) {
  event->setAccepted(ConfirmExit(*velorix_));
  if (event->isAccepted()) velorix_->Log.DebugPrint(">> frmVelorix_Terminate");
}

void frmVelorix::dragEnterEvent(QDragEnterEvent* event) {
  if (!LocalFiles(*event->mimeData()).empty()) event->acceptProposedAction();
}

void frmVelorix::dropEvent(QDropEvent* event) {
  const std::vector<std::string> paths = LocalFiles(*event->mimeData());
  if (paths.empty()) return;
  event->acceptProposedAction();
  // Later, so that a question does not hold up the file manager.
  QTimer::singleShot(0, this, [this, paths] {
    Work(*velorix_, [&] {
      if (!OpenDroppedFiles(*velorix_, paths)) return;
      DisplayData(*velorix_, true);
      DisplayFormCaption(*velorix_);
    });
  });
}

void frmVelorix::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (lists_) DisplayFormCaption(*velorix_);
}

}  // namespace velorix
