#include "platform/qt/parts/widgets.h"

#include <QCoreApplication>
#include <QFile>
#include <QHeaderView>
#include <QPainter>
#include <QTableView>
#include <algorithm>

namespace velorix {
namespace {

QIcon Swatch(const QColor& colour) {
  QIcon icon;
  for (int ratio : {1, 2, 3}) {
    QPixmap pixmap(14 * ratio, 14 * ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.scale(ratio, ratio);
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.setBrush(colour);
    painter.drawRect(QRectF(1.5, 1.5, 11, 11));
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace

QColor ToQColor(Colour colour) {
  return QColor(colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF);
}

QIcon LoadPicture(const std::string& appFolder, const char* file) {
  const QString beside = QCoreApplication::applicationDirPath();
  for (const QString& folder :
       {ToQString(appFolder) + "/pics", beside + "/pics", beside + "/../share/velorix/pics"}) {
    const QString path = folder + "/" + file;
    if (QFile::exists(path)) return QIcon(path);
  }
  return {};
}

QIcon OwnIcon(const std::string& name) {
  return name.empty() ? QIcon() : QIcon(":/icons/" + ToQString(name) + ".svg");
}

void AddEntry(QComboBox& list, const QString& text, Colour colour) {
  const QColor back = ToQColor(colour);
  list.addItem(Swatch(back), text);
  const int last = list.count() - 1;
  list.setItemData(last, back, Qt::BackgroundRole);
  list.setItemData(last, QColor(back.lightness() < 110 ? Qt::white : Qt::black),
                   Qt::ForegroundRole);
}

QComboBox* MakeList(const QString& name, const QString& tip, int characters, QWidget* parent) {
  auto* list = new QComboBox(parent);
  list->setObjectName(name);
  list->setToolTip(tip);
  list->setSizeAdjustPolicy(characters == 0 ? QComboBox::AdjustToContents
                                            : QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(characters);
  // A large system font shortens a long list's text before it widens the window beyond a small
  // screen.
  if (characters > 0)
    list->setMinimumWidth(7 * list->fontMetrics().averageCharWidth() +
                          2 * list->iconSize().width());
  list->setMaxVisibleItems(25);
  return list;
}

void FitSortedHeader(QTableView& table) {
  const QHeaderView& header = *table.horizontalHeader();
  const int column = header.sortIndicatorSection();
  if (column >= 0 && column < header.count())
    table.setColumnWidth(column,
                         std::max(table.columnWidth(column), header.sectionSizeHint(column)));
}

}  // namespace velorix
