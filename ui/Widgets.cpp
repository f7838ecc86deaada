#include "Widgets.h"

#include "Fonts.h"
#include "Twips.h"

#include <QAbstractScrollArea>
#include <QDragEnterEvent>
#include <QFrame>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace {

// The fold marker: its text stays "^", but it is drawn as a small chevron inside the panel's
// frame, where a "^" glyph of a readable size would not fit and would cover the border.
class FoldLabel final : public ClickLabel {
public:
    using ClickLabel::ClickLabel;

protected:
    void paintEvent(QPaintEvent *) override {
        const auto *frame = qobject_cast<const QFrame *>(parentWidget());
        const int inset = frame ? frame->frameWidth() : 0;
        const QRectF area = QRectF(rect()).adjusted(inset, inset, 0, 0);
        QPainterPath chevron;
        chevron.moveTo(area.left() + area.width() * 0.15, area.top() + area.height() * 0.7);
        chevron.lineTo(area.center().x(), area.top() + area.height() * 0.25);
        chevron.lineTo(area.right() - area.width() * 0.15, area.top() + area.height() * 0.7);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(palette().color(QPalette::WindowText), 1.2 * DisplayScalePercent() / 100.0));
        painter.drawPath(chevron);
    }
};

} // namespace

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
    window->setFont(ReadableFont());
}

ClickLabel *MakeFoldLabel(QWidget *panel, const QString &name) {
    auto *label = new FoldLabel(QStringLiteral("^"), panel);
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
