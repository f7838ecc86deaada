#include "TestSupport.h"

#include "Form1.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QToolBar>

#include <array>

namespace testsupport {

void Fail(const QString &message) {
    QTest::qFail(qPrintable(message), __FILE__, __LINE__);
}

QString SettingsPath() {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/quorvel.cfg");
}

void RemoveSettingsFile() {
    QFile::remove(SettingsPath());
}

void WriteSettingsFile(const QByteArray &content) {
    QFile file(SettingsPath());
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(content);
}

QString StoredPetsPath() {
    return QCoreApplication::applicationDirPath() + QStringLiteral("/quorvel-pets.csv");
}

QByteArray ReadFileBytes(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.readAll();
}

std::unique_ptr<Form1> MakeForm1() {
    auto form = std::make_unique<Form1>();
    form->show();
    if (!QTest::qWaitForWindowExposed(form.get()))
        Fail(QStringLiteral("main window not exposed"));
    return form;
}

QAction *ToolbarAction(QWidget *form1, const QString &caption) {
    auto *toolbar = form1->findChild<QToolBar *>(QStringLiteral("Toolbar1"));
    if (!toolbar)
        return nullptr;
    for (QAction *action : toolbar->findChildren<QAction *>()) {
        if (action->text() == caption)
            return action;
    }
    return nullptr;
}

QString TempFolder() {
    static QTemporaryDir dir;
    return dir.path();
}

QString WriteDnaFile(const QString &name, const QStringList &lines) {
    const QString path = TempFolder() + QLatin1Char('/') + name;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        for (const QString &line : lines)
            file.write(line.toLatin1() + "\r\n");
    }
    return path;
}

QString GoodDnaLine() {
    return QStringLiteral("100,87,12,301,95,102,340,298,415,1000,Fresh,30,4,1,6");
}

QList<BadDnaFile> WriteBadDnaFiles() {
    const QString good = GoodDnaLine();
    // Bytes of every value, line ends among them, the same on every run.
    QByteArray noise;
    for (unsigned i = 0, seed = 7; i < 64 * 1024; ++i)
        noise += static_cast<char>((seed = seed * 1103515245u + 12345u) >> 24);
    const QString bare = TempFolder() + QStringLiteral("/bare.txt");
    if (QFile file(bare); file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(good.toLatin1());
    return {
        {"binary noise", WriteDnaFile(QStringLiteral("noise.txt"), {QString::fromLatin1(noise)}), 0, false, false},
        {"100 000-char line", WriteDnaFile(QStringLiteral("long.txt"), {good, QString(100000, u'x')}), 1, false, false},
        {"10 000 lines", WriteDnaFile(QStringLiteral("many.txt"), QStringList(10000, good)), 10000, false, false},
        {"no final line end", bare, 1, true, false},
        {"lone CR", WriteDnaFile(QStringLiteral("cr.txt"), {good + u'\r' + good}), 2, true, false},
        {"vanished file", TempFolder() + QStringLiteral("/gone.txt"), 0, false, true},
        {"folder", TempFolder(), 0, false, true},
    };
}

namespace {

constexpr int kPollMs = 50;
constexpr int kDialogWaitMs = 5000;

// Calls `answer` with the visible top-level widget of type T once one shows, looking every
// kPollMs. After kDialogWaitMs it gives up: the test that scheduled it fails (a test that
// has ended by then is only warned about).
template <typename T>
void WhenShown(const char *what, const std::function<void(T *)> &answer, QDeadlineTimer deadline,
               const QByteArray &test) {
    QTimer::singleShot(kPollMs, [=] {
        T *shown = nullptr;
        for (QWidget *w : QApplication::topLevelWidgets()) {
            if (auto *candidate = qobject_cast<T *>(w); candidate && candidate->isVisible())
                shown = candidate;
        }
        if (shown) {
            answer(shown);
        } else if (!deadline.hasExpired()) {
            WhenShown<T>(what, answer, deadline, test);
        } else if (test == QTest::currentTestFunction()) {
            Fail(QStringLiteral("no %1 showed").arg(QLatin1String(what)));
        } else {
            qWarning("no %s showed for %s", what, test.constData());
        }
    });
}

template <typename T> void WhenShown(const char *what, const std::function<void(T *)> &answer) {
    WhenShown<T>(what, answer, QDeadlineTimer(kDialogWaitMs), QByteArray(QTest::currentTestFunction()));
}

} // namespace

void AnswerFileDialog(const QString &path) {
    WhenShown<QFileDialog>("file dialog", [path](QFileDialog *dialog) {
        if (path.isEmpty()) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        auto *edit = Find<QLineEdit>(dialog, QStringLiteral("fileNameEdit"));
        edit->setText(path);
        QTest::keyClick(edit, Qt::Key_Return);
    });
}

void AnswerInputDialog(const QString &text, QString *seen, bool accept) {
    WhenShown<QInputDialog>("input dialog", [=](QInputDialog *dialog) {
        if (seen)
            *seen = dialog->textValue();
        if (!accept) {
            dialog->reject();
            return;
        }
        dialog->setTextValue(text);
        dialog->accept();
    });
}

void AnswerMessageBox(int standardButton, QString *seenTitle, QString *seenText) {
    WhenShown<QMessageBox>("message box", [=](QMessageBox *box) {
        if (seenTitle)
            *seenTitle = box->windowTitle();
        if (seenText)
            *seenText = box->text();
        if (QAbstractButton *button = box->button(static_cast<QMessageBox::StandardButton>(standardButton)))
            button->click();
    });
}

namespace {

QPoint RowCentre(QAbstractItemView *view, int row) {
    const QModelIndex index = view->model()->index(row - 1, 1);
    view->scrollTo(index);
    return view->visualRect(index).center();
}

} // namespace

void ClickRow(QAbstractItemView *view, int row, Qt::MouseButton button) {
    QTest::mouseClick(view->viewport(), button, Qt::NoModifier, RowCentre(view, row));
}

void DoubleClickRow(QAbstractItemView *view, int row) {
    const QPoint at = RowCentre(view, row);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, at);
}

void ClickHeader(QTreeView *view, int column) {
    QHeaderView *header = view->header();
    const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, header->height() / 2));
}

void ClickWidget(QWidget *widget) {
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, widget->rect().center());
}

bool DropOn(QWidget *target) {
    QMimeData data;
    const QPoint at = target->rect().center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &move);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &drop);
    return enter.isAccepted() && drop.isAccepted();
}

QString Cell(QAbstractItemView *view, int row, int column) {
    return view->model()->index(row - 1, column).data(Qt::DisplayRole).toString();
}

int RowCount(QAbstractItemView *view) {
    return view->model()->rowCount();
}

QString RowText(QAbstractItemView *view, int row, const QList<int> &columns) {
    QStringList texts;
    for (int column : columns)
        texts << Cell(view, row, column);
    return texts.join(QLatin1Char('|'));
}

QString ColumnText(QAbstractItemView *view, int column) {
    QStringList texts;
    for (int row = 1; row <= RowCount(view); ++row)
        texts << Cell(view, row, column);
    return texts.join(QLatin1Char('|'));
}

void LoadSamples(Form1 *form, const QStringList &lines, const QString &fileName) {
    AnswerFileDialog(WriteDnaFile(fileName, lines));
    ToolbarAction(form, QStringLiteral("Load"))->trigger();
}

void SendToCategory(Form1 *form, int row, int category) {
    static const std::array<const char *, 5> entries{"m_phys", "m_prow", "m_ment", "m_psych", "m_aggro"};
    ClickRow(form->findChild<QAbstractItemView *>(QStringLiteral("ListView1")), row, Qt::RightButton);
    auto *menu = form->findChild<QMenu *>(QStringLiteral("m_test"));
    if (!menu || !QTest::qWaitFor([menu] { return menu->isVisible(); }))
        return;
    menu->findChild<QAction *>(QString::fromLatin1(entries[static_cast<std::size_t>(category)]))->trigger();
    menu->hide();
}

QString TextOf(QWidget *window, const QString &name) {
    QWidget *w = window->findChild<QWidget *>(name);
    if (auto *label = qobject_cast<QLabel *>(w))
        return label->text();
    if (auto *button = qobject_cast<QAbstractButton *>(w))
        return button->text();
    if (auto *edit = qobject_cast<QLineEdit *>(w))
        return edit->text();
    Fail(QStringLiteral("no text control %1").arg(name));
    return {};
}

QWidget *TopLevel(const QString &name) {
    for (QWidget *w : QApplication::topLevelWidgets()) {
        if (w->objectName() == name && w->isVisible())
            return w;
    }
    return nullptr;
}

void CloseAllWindows() {
    for (QWidget *w : QApplication::topLevelWidgets()) {
        if (w->isVisible() && w->objectName() != QLatin1String("Form1"))
            w->close();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void WindowTest::init() {
    QLocale::setDefault(QLocale::c());
    RemoveSettingsFile();
    // The user's preferences (the display scale) go to a folder of the test's own, empty at first.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, TempFolder() + QStringLiteral("/config"));
    QSettings(QStringLiteral("quorvel"), QStringLiteral("display")).clear();
    QFile::remove(StoredPetsPath());
}

void WindowTest::cleanup() {
    CloseAllWindows();
    RemoveSettingsFile();
    QFile::remove(StoredPetsPath());
    QLocale::setDefault(QLocale::c());
}

} // namespace testsupport
