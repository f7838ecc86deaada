#pragma once

#include <QTreeWidget>

// The DNA list control: a report list that tells the window about every mouse action
// on it, after it has moved its own highlight.
class DnaListView final : public QTreeWidget {
    Q_OBJECT
public:
    explicit DnaListView(QWidget *parent = nullptr);

signals:
    void buttonPressed(Qt::MouseButton button, const QPoint &globalPos);
    void buttonReleased();
    void rowDoubleClicked();
    void dragStarting();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
};

// A row of the DNA list; rows compare their texts as text, ignoring letter case, so that
// the blanks in front of numbers give numeric order. Every column but "#" is right-aligned
// unless a cell is given its own alignment. A name too long for its column has the full
// name as its tooltip.
class DnaListItem final : public QTreeWidgetItem {
public:
    using QTreeWidgetItem::QTreeWidgetItem;
    QVariant data(int column, int role) const override;
    bool operator<(const QTreeWidgetItem &other) const override;

private:
    bool NameCut() const;
};
