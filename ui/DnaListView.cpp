#include "DnaListView.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStyle>
#include <QStyledItemDelegate>

namespace {

// Every row is one line of the list's font high, whatever its texts hold. The rows all take
// the first row's height, and a name with a taller glyph (from a fallback font) stored into
// the first row as a click leaves a box would move every row under the pointer before the
// click picks its row.
class LineHighDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        QStyleOptionViewItem line = option;
        initStyleOption(&line, index);
        line.text = QStringLiteral("0");
        const QWidget *view = line.widget;
        QStyle *style = view ? view->style() : QApplication::style();
        size.setHeight(style->sizeFromContents(QStyle::CT_ItemViewItem, &line, QSize(), view).height());
        return size;
    }
};

} // namespace

DnaListView::DnaListView(QWidget *parent) : QTreeWidget(parent) {
    setItemDelegate(new LineHighDelegate(this));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
}

void DnaListView::mousePressEvent(QMouseEvent *event) {
    QTreeWidget::mousePressEvent(event);
    emit buttonPressed(event->button(), event->globalPosition().toPoint());
}

void DnaListView::mouseReleaseEvent(QMouseEvent *event) {
    QTreeWidget::mouseReleaseEvent(event);
    emit buttonReleased();
}

void DnaListView::mouseDoubleClickEvent(QMouseEvent *event) {
    QTreeWidget::mouseDoubleClickEvent(event);
    if (topLevelItemCount() > 0)
        emit rowDoubleClicked();
}

void DnaListView::startDrag(Qt::DropActions supportedActions) {
    emit dragStarting();
    QTreeWidget::startDrag(supportedActions);
}

QVariant DnaListItem::data(int column, int role) const {
    if (role == Qt::ToolTipRole && column == 1)
        return NameCut() ? QTreeWidgetItem::data(column, Qt::DisplayRole) : QVariant();
    const QVariant value = QTreeWidgetItem::data(column, role);
    if (role == Qt::TextAlignmentRole && column >= 1 && !value.isValid())
        return QVariant(static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
    return value;
}

bool DnaListItem::NameCut() const {
    const QTreeWidget *view = treeWidget();
    if (!view)
        return false;
    // The cell's text keeps a margin on either side, as the item delegate draws it.
    const int margin = view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view) + 1;
    const QString name = QTreeWidgetItem::data(1, Qt::DisplayRole).toString();
    return view->fontMetrics().horizontalAdvance(name) + 2 * margin > view->columnWidth(1);
}

bool DnaListItem::operator<(const QTreeWidgetItem &other) const {
    const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
    // The texts are read past the alignment default above, which sorting never needs.
    const QString mine = QTreeWidgetItem::data(column, Qt::DisplayRole).toString();
    const QString theirs = other.QTreeWidgetItem::data(column, Qt::DisplayRole).toString();
    return QString::compare(mine, theirs, Qt::CaseInsensitive) < 0;
}
