#include "Widgets.h"

#include "Twips.h"

#include <QAbstractScrollArea>
#include <QDragEnterEvent>
#include <QFrame>
#include <QMouseEvent>

void ClickLabel::mousePressEvent(QMouseEvent *event) {
    pressed_ = event->button() == Qt::LeftButton;
    QLabel::mousePressEvent(event);
}

void ClickLabel::mouseReleaseEvent(QMouseEvent *event) {
    const bool click = pressed_ && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    pressed_ = false;
    QLabel::mouseReleaseEvent(event);
    if (click)
        emit clicked();
}

DropFilter::DropFilter(QWidget *target) : QObject(target) {
    target->setAcceptDrops(true);
    QWidget *receiver = target;
    if (auto *area = qobject_cast<QAbstractScrollArea *>(target)) {
        receiver = area->viewport();
        receiver->setAcceptDrops(true);
    }
    receiver->installEventFilter(this);
}

bool DropFilter::eventFilter(QObject *, QEvent *event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove: {
        auto *drag = static_cast<QDragMoveEvent *>(event);
        drag->setDropAction(Qt::CopyAction);
        drag->accept();
        return true;
    }
    case QEvent::Drop: {
        auto *drop = static_cast<QDropEvent *>(event);
        drop->setDropAction(Qt::CopyAction);
        drop->accept();
        emit dropped();
        return true;
    }
    default:
        return false;
    }
}

void FillBackground(QWidget *widget, const QColor &colour) {
    widget->setAutoFillBackground(true);
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
}

void SetUpSecondaryWindow(QWidget *window, const QString &name, const QString &title) {
    window->setObjectName(name);
    window->setWindowTitle(title);
    window->setAttribute(Qt::WA_DeleteOnClose);
    FillBackground(window, kWindowColour);
    QFont compact = window->font();
    compact.setPointSizeF(8.0);
    window->setFont(compact);
}

ClickLabel *MakeFoldLabel(QWidget *panel, const QString &name) {
    auto *label = new ClickLabel(QStringLiteral("^"), panel);
    label->setObjectName(name);
    PlaceTwips(label, 0, 0, 135, 135);
    return label;
}

QFrame *MakePanel(QWidget *parent, const QString &name, const QColor &colour) {
    auto *panel = new QFrame(parent);
    panel->setObjectName(name);
    FillBackground(panel, colour);
    return panel;
}

void SetTextColour(QWidget *widget, const QColor &colour) {
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, colour);
    palette.setColor(QPalette::ButtonText, colour);
    widget->setPalette(palette);
}
