#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>

class QWidget;

// Answers the modal dialogs an action opens, as the user would: a file dialog gets the path
// planned for it (or Escape when none is), a question its planned Yes or No, any other box
// its OK. What each dialog said is kept for the action's checks.
class DialogAnswerer : public QObject {
    Q_OBJECT
public:
    DialogAnswerer();

    // Plans the answers of the next action and starts watching for dialogs.
    void Begin(const QString &path = QString(), bool yes = true);
    // Stops watching; the dialogs seen are kept until the next Begin.
    void End();

    // "file:<title>", or "box:<title>:<text>" for each dialog answered, in order.
    const QStringList &Seen() const { return seen_; }
    bool SawBox(const QString &title) const;

private:
    void Poll();

    QTimer timer_;
    QString path_;
    bool yes_ = true;
    QStringList seen_;
    // A file dialog that is still open after its path was typed had a folder typed: the
    // dialog went into it, and the user gives up with Escape.
    QPointer<QWidget> typedInto_;
};
