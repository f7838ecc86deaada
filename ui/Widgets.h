#pragma once

#include <QColor>
#include <QLabel>
#include <QObject>

// A label that acts on a click (a press and release on it).
class ClickLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

signals:
    void clicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    bool pressed_ = false;
};

// Makes a widget a drop target that accepts any drag, whatever it carries (nothing
// dropped is read: the drop acts on the selected sample). For an item view, pass its view;
// the filter sits on the viewport, where drags arrive.
class DropFilter final : public QObject {
    Q_OBJECT
public:
    explicit DropFilter(QWidget *target);

signals:
    void dropped();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

// Colours of the windows and of the panels inside them.
inline const QColor kWindowColour(163, 148, 118);
inline const QColor kPanelColour(191, 186, 164);

// Fills a widget's background with one colour.
void FillBackground(QWidget *widget, const QColor &colour);

// The common start of the secondary windows: a top-level window deleted when closed, with
// its objectName, caption, the window colour and the readable font of the fixed layouts.
void SetUpSecondaryWindow(QWidget *window, const QString &name, const QString &title);

// The small "^" label in a panel's top left corner whose click folds or unfolds the panel.
ClickLabel *MakeFoldLabel(QWidget *panel, const QString &name);

// A panel filled with one colour.
class QFrame;
QFrame *MakePanel(QWidget *parent, const QString &name, const QColor &colour);
void SetTextColour(QWidget *widget, const QColor &colour);
