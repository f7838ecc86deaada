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

QVariant DnaListItem::data(int column, int role) const {
    const QVariant value = QTreeWidgetItem::data(column, role);
    if (role == Qt::TextAlignmentRole && column >= 1 && !value.isValid())
        return QVariant(static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
    return value;
}

bool DnaListItem::operator<(const QTreeWidgetItem &other) const {
    const int column = treeWidget() ? treeWidget()->sortColumn() : 0;
    // The texts are read past the alignment default above, which sorting never needs.
    const QString mine = QTreeWidgetItem::data(column, Qt::DisplayRole).toString();
    const QString theirs = other.QTreeWidgetItem::data(column, Qt::DisplayRole).toString();
    return QString::compare(mine, theirs, Qt::CaseInsensitive) < 0;
}
