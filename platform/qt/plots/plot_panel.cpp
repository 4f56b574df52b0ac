#include "platform/qt/plots/plot_panel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QToolButton>

#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

/// A scroll area as wide as what it holds: property frames never need more height than there is.
class FrameScroll : public QScrollArea {
 public:
  using QScrollArea::QScrollArea;
  QSize sizeHint() const override { return {Width(), 100}; }
  QSize minimumSizeHint() const override { return {Width(), 60}; }

 private:
  int Width() const {
    if (!widget()) return 0;
    return widget()->sizeHint().width() + verticalScrollBar()->sizeHint().width();
  }
};

}  // namespace

PlotPanel::PlotPanel(const PlotNames& names, const std::string& appFolder, QWidget* parent)
    : QFrame(parent),
      up_(LoadPicture(appFolder, "ARW01UP16.ico")),
      down_(LoadPicture(appFolder, "ARW01DN16.ico")) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(3);
  title_ = MakeTitleRow(names.Title, this);
  button_ = MakeFlatButton(names.Button, this);
  button_->setToolTip(names.ButtonTip);
  button_->setAccessibleName(names.ButtonTip);
  title_->addWidget(button_);
  column->addLayout(title_);

  auto* row = new QHBoxLayout;
  row->setSpacing(3);
  column->addLayout(row, 1);
  auto* border = new QFrame(this);
  border->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  Picture = new PictureWidget(border);
  Picture->setObjectName(names.Picture);
  Picture->setToolTip(names.PictureTip);
  Picture->AllowZoom();
  auto* inside = new QVBoxLayout(border);
  inside->setContentsMargins(1, 1, 1, 1);
  inside->addWidget(Picture);
  row->addWidget(border, 1);

  scroll_ = new FrameScroll(this);
  scroll_->setWidgetResizable(true);
  scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  scroll_->setFocusPolicy(Qt::NoFocus);
  scroll_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  Frame = new QFrame;
  Frame->setObjectName(names.Frame);
  Frame->setAutoFillBackground(true);
  Options = new QVBoxLayout(Frame);
  Options->setContentsMargins(8, 6, 8, 6);
  Options->setSpacing(4);
  scroll_->setWidget(Frame);
  row->addWidget(scroll_);
  connect(button_, &QToolButton::clicked, this, [this] { SetOpen(!IsOpen()); });
  SetOpen(true);
}

void PlotPanel::SetOpen(bool open) {
  scroll_->setVisible(open);
  button_->setIcon(open ? up_ : down_);
}

QLabel* PlotPanel::AddReadOut(const QString& name, const QString& tip) {
  auto* label = new QLabel(this);
  label->setObjectName(name);
  label->setToolTip(tip);
  label->setMinimumWidth(1);  // the plot's width isn't the text's
  title_->insertWidget(title_->count() - 1, label);
  return label;
}

void PlotPanel::AddPageBox(const char* name, bool& onPage) {
  auto* box = new QCheckBox("Page", this);
  box->setObjectName(name);
  box->setToolTip("Put this plot on the page that is saved, copied or printed");
  box->setChecked(onPage);
  connect(box, &QCheckBox::toggled, this, [&onPage](bool on) { onPage = on; });
  title_->insertWidget(title_->count() - 1, box);
}

bool PlotPanel::IsOpen() const { return !scroll_->isHidden(); }

void AddWholePlotKey(QWidget& window) {
  auto* key = new QShortcut(QKeySequence(WholePlotKey), &window);
  QObject::connect(key, &QShortcut::activated, &window, [&window] {
    for (QWidget* child : window.findChildren<QWidget*>())
      if (auto* picture = dynamic_cast<PictureWidget*>(child)) picture->ShowWhole();
  });
}

QHBoxLayout* MakeTitleRow(const char* title, QWidget* parent) {
  auto* row = new QHBoxLayout;
  row->setContentsMargins(2, 0, 0, 0);
  row->setSpacing(4);
  auto* label = new QLabel(title, parent);
  QFont font = label->font();
  font.setBold(true);
  label->setFont(font);
  row->addWidget(label);
  row->addStretch(1);
  return row;
}

QToolButton* MakeFlatButton(const char* name, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setObjectName(name);
  button->setAutoRaise(true);
  button->setIconSize(QSize(16, 16));
  button->setFocusPolicy(Qt::StrongFocus);
  return button;
}

}  // namespace velorix
