#include "platform/qt/windows/about_window.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "app/state/program.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

QLabel* MakeEmblem(QWidget* parent) {
  const int size = 7 * parent->fontMetrics().height();
  auto* emblem = new QLabel(parent);
  emblem->setPixmap(OwnIcon("velorix").pixmap(QSize(size, size), parent->devicePixelRatioF()));
  emblem->setFixedSize(size, size);
  return emblem;
}

QLabel* AddLine(QVBoxLayout& lines, const QString& text, const char* name, double scale) {
  auto* line = new QLabel(text);
  line->setObjectName(name);
  QFont font = line->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setBold(scale > 1.5);
  line->setFont(font);
  lines.addWidget(line);
  return line;
}

/// Title, subject, version and release line beside the emblem.
QHBoxLayout* MakeIdentity(QWidget* parent) {
  auto* row = new QHBoxLayout;
  row->setSpacing(20);
  row->addWidget(MakeEmblem(parent), 0, Qt::AlignVCenter);
  auto* lines = new QVBoxLayout;
  lines->setSpacing(4);
  lines->addStretch(1);
  AddLine(*lines, "Velorix", "lblTitle", 2.4);
  AddLine(*lines, "Anisotropy of magnetic susceptibility", "lblSubject", 1.1);
  lines->addSpacing(8);
  AddLine(*lines, QString("Version %1").arg(Version), "lblVersion", 1.0);
  AddLine(*lines, ReleaseLine, "lblRelease", 1.0);
  lines->addStretch(1);
  row->addLayout(lines, 1);
  return row;
}

}  // namespace

frmSplash::frmSplash() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
  setObjectName("frmSplash");
  setAttribute(Qt::WA_QuitOnClose, false);  // the program goes on without it
  QPalette light = palette();
  light.setColor(QPalette::Window, Qt::white);
  light.setColor(QPalette::WindowText, QColor(0x1C, 0x3A, 0x5C));
  setPalette(light);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(28, 24, 28, 24);
  column->addLayout(MakeIdentity(this));
  setFixedSize(sizeHint().expandedTo(QSize(460, 200)));
}

void frmSplash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().window());
  painter.setPen(QColor(0x9F, 0xB4, 0xC8));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.fillRect(QRect(0, height() - 6, width(), 6), QColor(0x22, 0x50, 0x7F));
}

frmAbout::frmAbout(QWidget* parent) : QDialog(parent) {
  setObjectName("frmAbout");
  setWindowTitle("About");
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 16);
  column->setSpacing(16);
  column->addLayout(MakeIdentity(this));
  auto* licence = new QLabel(
      "Free software under the MIT licence. Windows by Qt " + QString(qVersion()) + ".", this);
  licence->setObjectName("lblLicence");
  column->addWidget(licence);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  QPushButton* manual = buttons->addButton("&Manual", QDialogButtonBox::HelpRole);
  manual->setObjectName("cmdManual");
  manual->setToolTip("Open the manual [Shift+F1]");
  connect(manual, &QPushButton::clicked, this, [this] { done(ManualAsked); });
  buttons->button(QDialogButtonBox::Ok)->setToolTip("Close this window [Esc]");
  buttons->button(QDialogButtonBox::Ok)->setDefault(true);
  column->addWidget(buttons);
  setFixedSize(sizeHint());
}

}  // namespace velorix
