#pragma once

#include <QApplication>
#include <QString>
#include <QStringList>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <functional>
#include <memory>

class Form1;
class QAbstractItemView;
class QMessageBox;
class QWidget;

namespace testsupport {

// The program folder's settings file; tests remove it to start from the defaults.
QString SettingsPath();
void RemoveSettingsFile();
void WriteSettingsFile(const QByteArray &content);
// The stored pets' file beside the settings file; tests start without it.
QString StoredPetsPath();
QByteArray ReadFileBytes(const QString &path);

// A new main window, shown and exposed.
std::unique_ptr<Form1> MakeForm1();

// Fails the running test with a message (from helpers, which cannot use QFAIL).
void Fail(const QString &message);

// A control of a window by objectName; the test fails when it is missing.
template <typename T> T *Find(QWidget *window, const QString &name) {
    T *child = window ? window->findChild<T *>(name) : nullptr;
    if (!child)
        Fail(QStringLiteral("control %1 not found").arg(name));
    return child;
}

// The toolbar's action with this caption (buttons and drop-down entries).
QAction *ToolbarAction(QWidget *form1, const QString &caption);

// Writes a DNA file of CR LF lines into the test's temporary folder and returns its path.
QString WriteDnaFile(const QString &name, const QStringList &lines);
QString TempFolder();

// The broken inputs every loader test feeds in, written into the temporary folder: binary
// noise, a 100 000-character line, 10 000 lines, no final line end, a lone CR, a vanished
// file and a folder. `samples` is how many samples come before the reading stops (with room
// for them all), `complete` whether the whole file is read; the vanished file and the folder
// are for the start-up's load, which names them without a dialog (`atStart`).
struct BadDnaFile {
    const char *tag;
    QString path;
    int samples;
    bool complete;
    bool atStart;
};
QList<BadDnaFile> WriteBadDnaFiles();
// The good sample line the bad files are made of.
QString GoodDnaLine();

// Schedules an answer to the next file dialog: the path typed and Enter, or Escape when empty.
// The answers wait a few seconds for their dialog; one that never shows fails the test.
void AnswerFileDialog(const QString &path);
// Schedules an answer to the next input dialog: its text replaced by `text` and OK, or Cancel
// when `accept` is false; `seen` receives the text it offered.
void AnswerInputDialog(const QString &text, QString *seen = nullptr, bool accept = true);
// Schedules a click on a message box button; `seen` receives the box's title and text.
void AnswerMessageBox(int standardButton, QString *seenTitle = nullptr, QString *seenText = nullptr);

// Clicks, presses, releases and double-clicks a DNA list row at its position (from 1).
void ClickRow(QAbstractItemView *view, int row, Qt::MouseButton button = Qt::LeftButton);
void DoubleClickRow(QAbstractItemView *view, int row);
// A header click over a column.
void ClickHeader(QTreeView *view, int column);
// A press and release on a label or other widget.
void ClickWidget(QWidget *widget);
// Enter, move and drop events of an empty drag on a target (an item view's viewport for views).
bool DropOn(QWidget *target);

// Text of row `row` (from 1) and column `column` of a report list.
QString Cell(QAbstractItemView *view, int row, int column);
int RowCount(QAbstractItemView *view);
// Cells joined by '|': of these columns in one row, or of one column in every row.
QString RowText(QAbstractItemView *view, int row, const QList<int> &columns);
QString ColumnText(QAbstractItemView *view, int column);

// Writes the lines to a DNA file and loads it through the toolbar's "Load" and its dialog.
void LoadSamples(Form1 *form, const QStringList &lines, const QString &fileName = QStringLiteral("samples.txt"));
// Right-clicks a DNA list row and triggers an entry of the "Send to" menu (category 0..4).
void SendToCategory(Form1 *form, int row, int category);
// The text of a label, button or line edit of a window found by objectName.
QString TextOf(QWidget *window, const QString &name);

// The first visible top-level widget with this objectName.
QWidget *TopLevel(const QString &name);
// Closes and deletes every top-level window the test left open.
void CloseAllWindows();

// A window test's common set-up: the C locale, no settings file and no stored preferences
// before every test, every secondary window closed after it. Test classes derive from it.
class WindowTest : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
};

} // namespace testsupport
