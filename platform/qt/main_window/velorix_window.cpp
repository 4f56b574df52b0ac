#include "platform/qt/main_window/velorix_window.h"

#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QUrl>

#include "app/commands/commands.h"
#include "app/commands/display.h"
#include "app/commands/startup.h"
#include "app/commands/view_choices.h"
#include "app/files/open_flow.h"
#include "app/state/refusals.h"
#include "platform/qt/main_window/autosaver.h"
#include "platform/qt/main_window/grid_panel.h"
#include "platform/qt/main_window/view_lists.h"
#include "platform/qt/parts/busy_cursor.h"
#include "platform/qt/parts/own_paths.h"
#include "platform/qt/parts/widgets.h"
#include "platform/qt/plots/column_plots.h"
#include "platform/qt/plots/stereo_panel.h"
#include "platform/qt/statistics/group_statistics_window.h"
#include "platform/qt/statistics/groups_window.h"
#include "platform/qt/windows/about_window.h"
#include "platform/qt/windows/axes_window.h"
#include "platform/qt/windows/contour_window.h"
#include "platform/qt/windows/data_table_window.h"
#include "platform/qt/windows/edit_data_window.h"
#include "platform/qt/windows/factor_window.h"
#include "platform/qt/windows/figure_window.h"
#include "platform/qt/windows/foli_line_window.h"
#include "platform/qt/windows/ged_editor_window.h"
#include "platform/qt/windows/manual_window.h"
#include "platform/qt/windows/opar_window.h"

namespace velorix {
namespace {

constexpr int StatusTime = 10000;  // milliseconds

QSplitter* MakeSplitter(Qt::Orientation orientation, QWidget* parent) {
  auto* splitter = new QSplitter(orientation, parent);
  splitter->setChildrenCollapsible(false);
  splitter->setHandleWidth(7);
  return splitter;
}

/// A button that shows and hides `panel`.
QPushButton* MakePanelButton(const char* name, const char* text, const char* tip, QWidget* panel,
                             bool shown, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(name);
  button->setToolTip(tip);
  button->setCheckable(true);
  button->setAutoDefault(false);
  button->setChecked(shown);
  panel->setVisible(shown);
  QObject::connect(button, &QPushButton::toggled, panel, &QWidget::setVisible);
  return button;
}

/// A window beside the main one stays above it and is not lost behind it: X11 does that for dialogs
/// alone, whose title has only a button to close by default.
constexpr Qt::WindowFlags AboveMain = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                                      Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;

constexpr char OpenHint[] = "Open a data file with Ctrl+O, or drop one on this window.";

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
  ReportBoxes(velorix.Dialogs, velorix.Views, velorix.Log);
  setWindowIcon(OwnIcon("velorix"));
  setAcceptDrops(true);
  ChooseFirstPlots(*velorix_);
  bars_.Build(*this, *velorix_);
  auto* centre = new QWidget(this);
  auto* rows = new QVBoxLayout(centre);
  rows->setContentsMargins(6, 4, 6, 2);
  rows->setSpacing(4);
  QWidget* views = MakeViews();
  rows->addWidget(lists_ = new ViewLists(*velorix_, centre));
  rows->addWidget(views, 1);
  AddPanelButtons();
  setCentralWidget(centre);
  AddWholePlotKey(*this);
  status_.Build(*statusBar());
  resize(1280, 800);
  statusBar()->showMessage(OpenHint);

  ResetSession(velorix_->Session);
  ShowCodeLists();
  RefreshViews(*velorix_);
  DisplayFormCaption(*velorix_);
  grid_->Grid->setFocus();
}

/// At the right end of the tool bar.
void frmVelorix::AddPanelButtons() {
  auto* bar = findChild<QToolBar*>("Toolbar1");
  auto* room = new QWidget(bar);
  room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar->addWidget(room);
  columnButton_ =
      MakePanelButton("cmdColumnPlots", "Histogram, XY plots",
                      "Show or hide the histogram and the XY plots", column_, true, bar);
  connect(columnButton_, &QPushButton::clicked, this, [this](bool on) { columnChosen_ = on; });
  bar->addWidget(columnButton_);
  bar->addWidget(MakePanelButton("cmdPairPlots", "Plots 1, 2",
                                 "Show or hide the two plots of parameter pairs", pairs_, false,
                                 bar));
}

/// The record grid, the stereonet, below them the plots of pairs, at the right the other plots.
QWidget* frmVelorix::MakeViews() {
  whole_ = MakeSplitter(Qt::Horizontal, this);
  QSplitter* left = MakeSplitter(Qt::Vertical, whole_);
  main_ = MakeSplitter(Qt::Horizontal, left);
  grid_ = new GridPanel(*velorix_, main_);
  stereo_ = new StereoPanel(*velorix_, main_);
  pairs_ = MakeSplitter(Qt::Horizontal, left);
  column_ = MakeSplitter(Qt::Vertical, whole_);
  plots_ = std::make_unique<ColumnPlots>(*velorix_, column_, pairs_);

  main_->setStretchFactor(0, 0);
  main_->setStretchFactor(1, 1);
  main_->setSizes({grid_->WantedWidth(), 1000});
  left->setStretchFactor(0, 1);
  left->setStretchFactor(1, 0);
  left->setSizes({500, 200});
  whole_->setStretchFactor(0, 2);
  whole_->setStretchFactor(1, 1);
  whole_->setSizes({890, 390});
  grid_->OnWiden = [this] {
    if (grid_->IsWide() && column_->isVisible()) besideNarrow_ = whole_->sizes();
    FollowGridWidth();
  };
  return whole_;
}

/// Pixels that the grid and the net beside it need.
int frmVelorix::LeftWidth() const {
  return grid_->WantedWidth() + main_->handleWidth() + stereo_->minimumSizeHint().width();
}

/// The grid takes its width from the net and then from the column at the right. Where there is no
/// room, the column goes, and then the net's options. A narrow grid gives all of it back.
void frmVelorix::FollowGridWidth() {
  if (optionsGone_) stereo_->SetOpen(true);
  const int column = whole_->handleWidth() + column_->minimumSizeHint().width();
  const bool wide = grid_->IsWide();
  columnButton_->setChecked(columnChosen_ && (!wide || LeftWidth() + column <= whole_->width()));
  optionsGone_ = wide && stereo_->IsOpen() && LeftWidth() > whole_->width();
  if (optionsGone_) stereo_->SetOpen(false);
  QTimer::singleShot(0, this, [this] { PlaceGrid(); });  // when the splitters know who is there
}

void frmVelorix::PlaceGrid() {
  const bool wide = grid_->IsWide(), hasColumn = column_->isVisible();
  if (wide && hasColumn && main_->width() < LeftWidth())
    whole_->setSizes({LeftWidth(), whole_->width() - whole_->handleWidth() - LeftWidth()});
  if (!wide && hasColumn && !besideNarrow_.isEmpty()) whole_->setSizes(besideNarrow_);
  if (!wide) besideNarrow_.clear();
  const int grid = grid_->WantedWidth();
  main_->setSizes({grid, main_->width() - main_->handleWidth() - grid});
}

void frmVelorix::ShowStartTime(float seconds) { status_.ShowStartTime(seconds); }

void frmVelorix::StartAutosave() {
  autosaver_ = std::make_unique<Autosaver>(*velorix_);
  autosaver_->OfferLeft();
}

void frmVelorix::SetCaption(const std::string& caption) {
  // "[*]" in a title is the toolkit's place for a mark; doubled it is itself.
  setWindowTitle(ToQString(caption).replace("[*]", "[*][*]"));
  // Messages of the command at work stay.
  if (velorix_->Session.RecordCount() > 0 && statusBar()->currentMessage() == OpenHint)
    statusBar()->clearMessage();
}

int frmVelorix::CaptionRoom() {
  constexpr int Buttons = 160, Rest = 30;  // pixels for the frame's buttons; title and count
  return std::max(20, (width() - Buttons) / fontMetrics().averageCharWidth() - Rest);
}

void frmVelorix::ShowChoices() {
  ShowBusyCursor();
  bars_.ShowChoices();
  lists_->ShowChoices();
  if (autosaver_) autosaver_->Forget();
  status_.ShowUnsaved(velorix_->Session.IsUnsaved());
}

void frmVelorix::ShowCodeLists() {
  ShowBusyCursor();
  lists_->ShowCodeLists();
  stereo_->ShowCodeLists();
}

void frmVelorix::ShowGridHeader() {
  grid_->Grid->ShowHeader();
  if (table_) table_->Table->ShowHeader();
  plots_->ShowGridHeader();
  stereo_->ShowGridHeader();
  if (group_) group_->AnisoFacName_Show();
}

void frmVelorix::FillGrid() {
  ShowBusyCursor();
  grid_->Grid->Fill();
}

void frmVelorix::Redraw(PlotKind plot) {
  if (plot != PlotKind::Stereonet) return plots_->Redraw(plot);
  stereo_->Redraw();
  status_.ShowRecords(*velorix_, grid_->Grid->Rows().rowCount());
}

/// Opens or shuts a window beside this one as the session says. When the user closes a
/// window, the session follows.
template <class Window>
void frmVelorix::ShowWindow(bool OpenWindows::*isOpen, Window*& window) {
  const bool open = velorix_->Windows.*isOpen;
  if (open && !window) {
    window = new Window(*velorix_, this);
    window->setWindowFlags(AboveMain);
    window->OnClose = [this, isOpen] {
      Work(*velorix_, [this, isOpen] {
        velorix_->Windows.*isOpen = false;
        ShowWindows();
        ShowChoices();
      });
    };
    window->show();
  } else if (!open && window) {
    window->OnClose = nullptr;
    window->close();
    window->deleteLater();
    window = nullptr;
  }
}

void frmVelorix::ShowWindows() {
  ShowWindow(&OpenWindows::DataTable, table_);
  ShowWindow(&OpenWindows::GroupStatistics, group_);
  ShowWindow(&OpenWindows::Contour, contour_);
  ShowWindow(&OpenWindows::FoliLine, foliLine_);
  ShowWindow(&OpenWindows::Groups, groups_);
}

void frmVelorix::FillDataTable() {
  if (table_) table_->Table->Fill();
}

void frmVelorix::ShowSelection() {
  grid_->Grid->ShowSelection();
  if (table_) table_->Table->ShowSelection();
}

void frmVelorix::RefreshGroupStatistics() {
  if (group_) group_->AnisoView_DisplayGroupStatistics();
  if (groups_) groups_->Refresh();
}

void frmVelorix::RefreshContour() {
  if (contour_) contour_->ShowState();
}

void frmVelorix::ShowAbout() {
  frmAbout about(this);
  if (about.exec() == frmAbout::ManualAsked) ShowManual();
}

void frmVelorix::ShowManual() {
  if (!manual_) manual_ = new frmManual(ManualPath(), this);
  manual_->show();
  manual_->raise();
  manual_->activateWindow();
}

void frmVelorix::ShowOrientationEditor() {
  frmEditData editor(*velorix_, this);
  if (autosaver_) autosaver_->Follow(&editor.Editor());
  editor.exec();
  if (autosaver_) autosaver_->Follow(nullptr);
}

void frmVelorix::ShowOrientationParameters() {
  frmOPAR parameters(*velorix_, this);
  parameters.exec();
}

void frmVelorix::ShowFactorChoice() {
  frmAnisoFac factors(*velorix_, this);
  factors.exec();
}

void frmVelorix::ShowFigureOptions() {
  frmFigure figure(*velorix_, this);
  figure.exec();
}

void frmVelorix::ShowAxes() {
  frmAxes axes(*velorix_, this);
  axes.exec();
}

void frmVelorix::ShowGedEditor() {
  if (!gedEditor_) gedEditor_ = new frmGEDEditor(*velorix_, this);
  gedEditor_->show();
  gedEditor_->raise();
  gedEditor_->activateWindow();
}

void frmVelorix::Exit() { close(); }

void frmVelorix::ShowStatus(const std::string& text) {
  statusBar()->showMessage(ToQString(text).replace('\n', ' '), StatusTime);
}

void frmVelorix::closeEvent(QCloseEvent* event) {
  event->setAccepted(ConfirmExit(velorix_->Dialogs, velorix_->Session, velorix_->History));
  if (!event->isAccepted()) return;
  velorix_->Log.DebugPrint(">> frmVelorix_Terminate");
  velorix_->Windows = {};
  ShowWindows();
  if (autosaver_) autosaver_->End();
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
      if (!OpenDroppedFiles(velorix_->Session, velorix_->History, velorix_->Dialogs, velorix_->Host,
                            paths))
        return;
      DisplayData(*velorix_, true);
      DisplayFormCaption(*velorix_);
    });
  });
}

void frmVelorix::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (lists_) DisplayFormCaption(*velorix_);
  if (grid_ && grid_->IsWide()) FollowGridWidth();
}

}  // namespace velorix
