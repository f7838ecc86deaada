#include "DnaListView.h"

#include <QMouseEvent>

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

bool DnaListItem::operator<(const QTreeWidgetItem &other) const {
    const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
    return text(column).compare(other.text(column), Qt::CaseInsensitive) < 0;
}
