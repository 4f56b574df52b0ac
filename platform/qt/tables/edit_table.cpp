#include "platform/qt/tables/edit_table.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QTimer>

#include "app/edit/orientation_parameters.h"
#include "platform/qt/parts/widgets.h"

namespace velorix {
namespace {

/// Cells of the parameters are edited by a list of the values on offer.
class CellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override {
    const int column = index.column() + 1;
    if (EditColumnAt(column).Kind != EditKind::Parameter)
      return QStyledItemDelegate::createEditor(parent, option, index);
    const int parameter = column - ParameterColumn(0);
    auto* list = MakeList("cboOP", ToQString(OrientationMeaning(parameter)), 2, parent);
    for (const std::int16_t value : OrientationValues(parameter)) {
      list->addItem(QString::number(value));
      list->setItemData(list->count() - 1, ToQString(OrientationValueMeaning(parameter, value)),
                        Qt::ToolTipRole);
    }
    auto* self = const_cast<CellDelegate*>(this);  // whose signals they are
    connect(list, &QComboBox::activated, self, [self, list] {
      emit self->commitData(list);
      emit self->closeEditor(list);
    });
    QTimer::singleShot(0, list, [list] {
      if (list->isVisible()) list->showPopup();
    });
    return list;
  }

  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    if (auto* list = qobject_cast<QComboBox*>(editor))
      list->setCurrentIndex(list->findText(index.data(Qt::EditRole).toString()));
    else
      QStyledItemDelegate::setEditorData(editor, index);
  }

  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override {
    auto* list = qobject_cast<QComboBox*>(editor);
    if (!list)
      QStyledItemDelegate::setModelData(editor, model, index);
    else if (list->currentIndex() >= 0)  // else nothing was chosen
      model->setData(index, list->currentText());
  }
};

/// Usual longest texts of the columns.
int Characters(int column) {
  if (column == 1) return 5;
  if (column == 2) return 13;
  return EditColumnAt(column).Kind == EditKind::Angle ? 6 : 4;
}

}  // namespace

GroupHeader::GroupHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setHighlightSections(false);
  setSectionsClickable(true);  // a click selects the column
}

QString GroupHeader::GroupOf(int section) const {
  return model()->headerData(section, Qt::Horizontal, EditModel::GroupRole).toString();
}

QSize GroupHeader::sizeHint() const {
  const QSize one = QHeaderView::sizeHint();
  return {one.width(), 2 * one.height()};
}

void GroupHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
  const QString group = GroupOf(section);
  if (model()->headerData(section, Qt::Horizontal).toString() == group)
    return QHeaderView::paintSection(painter, rect, section);
  const int half = rect.height() / 2;
  QHeaderView::paintSection(painter, rect.adjusted(0, half, 0, 0), section);
  // Each section paints the part over it of the caption that spans the group.
  int first = section, last = section;
  while (first > 0 && GroupOf(first - 1) == group) --first;
  while (last + 1 < count() && GroupOf(last + 1) == group) ++last;
  const int left = sectionViewportPosition(first);
  const int right = sectionViewportPosition(last) + sectionSize(last);
  QStyleOptionHeader option;
  initStyleOption(&option);
  option.rect = QRect(left, rect.top(), right - left, half);
  option.section = first;
  option.text = group;
  option.textAlignment = Qt::AlignCenter;
  painter->save();
  painter->setClipRect(rect.adjusted(0, 0, 0, half - rect.height()));
  style()->drawControl(QStyle::CE_Header, &option, painter, this);
  painter->restore();
}

EditTable::EditTable(OrientationEditor& editor, QWidget* parent)
    : FrozenTable(parent), editor_(editor), model_(editor) {
  setObjectName("scgDataTable");
  setAccessibleName("Orientation data of the records");
  setToolTip("Type over a cell to change it; Ctrl+C and Ctrl+V exchange blocks with a spreadsheet");
  setHorizontalHeader(new GroupHeader(this));
  setModel(&model_);
  setItemDelegate(new CellDelegate(this));
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                  QAbstractItemView::AnyKeyPressed);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 7);
  const int digit = fontMetrics().horizontalAdvance('0');
  for (int c = 1; c <= EditColumns; ++c) setColumnWidth(c - 1, Characters(c) * digit + 14);
  Freeze(OrientationColumn - 1, new GroupHeader(this));

  setContextMenuPolicy(Qt::ActionsContextMenu);
  AddAction("actUndo", "Undo", {QKeySequence("Ctrl+Z")}, &EditTable::Undo);
  AddAction("actRedo", "Redo", {QKeySequence("Ctrl+Y"), QKeySequence("Ctrl+Shift+Z")},
            &EditTable::Redo);
  AddAction("actCut", "Cut", {QKeySequence("Ctrl+X")}, &EditTable::Cut);
  AddAction("actCopy", "Copy", {QKeySequence("Ctrl+C")}, &EditTable::Copy);
  AddAction("actPaste", "Paste", {QKeySequence("Ctrl+V")}, &EditTable::Paste);
  AddAction("actClear", "Clear", {QKeySequence("Del")}, &EditTable::Clear);
}

/// The keys work while the grid has the focus; a cell that is typed in has its own.
void EditTable::AddAction(const char* name, const char* text, const QList<QKeySequence>& keys,
                          void (EditTable::*act)()) {
  auto* action = new QAction(text, this);
  action->setObjectName(name);
  action->setShortcuts(keys);
  action->setShortcutContext(Qt::WidgetShortcut);
  connect(action, &QAction::triggered, this, [this, act] {
    (this->*act)();
    Refresh();
  });
  addAction(action);
}

int EditTable::FullWidth() const {
  return horizontalHeader()->length() + 2 * frameWidth() + 24;  // and the scroll bar
}

void EditTable::EndTyping() { setFocus(); }

/// A key that opens a list goes to the first entry that begins with it; Return takes the entry. The
/// list itself would take it at once, and leave the second digit of "12" to open it again.
bool EditTable::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const bool key = trigger == AnyKeyPressed && event && event->type() == QEvent::KeyPress;
  if (!key || EditColumnAt(index.column() + 1).Kind != EditKind::Parameter)
    return QTableView::edit(index, trigger, event);
  if (!QTableView::edit(index, trigger, nullptr)) return false;
  if (auto* list = viewport()->findChild<QComboBox*>("cboOP")) {
    const int entry = list->findText(static_cast<QKeyEvent*>(event)->text(), Qt::MatchStartsWith);
    if (entry >= 0) list->setCurrentIndex(entry);
  }
  return true;
}

/// Return leads to the cell below, so that a column can be typed from a field book.
void EditTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  if (hint != QAbstractItemDelegate::SubmitModelCache) return QTableView::closeEditor(editor, hint);
  QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
  const QModelIndex below = currentIndex().siblingAtRow(currentIndex().row() + 1);
  if (below.isValid()) setCurrentIndex(below);
}

/// The selected cells, else the current one.
std::optional<CellBlock> EditTable::Block() const {
  const QItemSelection selected = selectionModel()->selection();
  if (!selected.isEmpty()) {
    const QItemSelectionRange& r = selected.first();
    return CellBlock{r.top() + 1, r.left() + 1, r.height(), r.width()};
  }
  const QModelIndex current = currentIndex();
  if (!current.isValid()) return std::nullopt;
  return CellBlock{current.row() + 1, current.column() + 1};
}

void EditTable::Copy() {
  if (const auto block = Block())
    QApplication::clipboard()->setText(ToQString(CopyBlock(editor_.Shown(), *block)));
}

void EditTable::Cut() {
  Copy();
  Clear();
}

void EditTable::Paste() {
  if (const auto block = Block())
    PasteCells(editor_, QApplication::clipboard()->text().toStdString(), *block);
}

void EditTable::Clear() {
  if (const auto block = Block()) PasteCells(editor_, "", *block);
}

void EditTable::Undo() { UndoEdit(editor_); }
void EditTable::Redo() { RedoEdit(editor_); }

}  // namespace velorix
