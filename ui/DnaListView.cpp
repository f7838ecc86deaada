#include "DnaListView.h"

#include <QMouseEvent>
#include <QStyle>

DnaListView::DnaListView(QWidget *parent) : QTreeWidget(parent) {
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
