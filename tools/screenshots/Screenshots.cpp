// Takes the windows' screenshots for tools/screenshots.sh: the main window with the README
// tour's template, the experimentation window in the middle of a session, Add DNA with its
// live panel, Options and About. Usage: quorvel_screenshots OUTPUT_FOLDER SCALE_PERCENT
#include "AppModel.h"
#include "DisplayScale.h"
#include "Form1.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>

#include <cstdio>
#include <functional>

namespace {

QWidget *Visible(const QString &name) {
    for (QWidget *w : QApplication::topLevelWidgets()) {
        if (w->objectName() == name && w->isVisible())
            return w;
    }
    return nullptr;
}

void Trigger(QWidget *form1, const QString &caption) {
    for (QAction *action : form1->findChild<QToolBar *>(QStringLiteral("Toolbar1"))->actions()) {
        if (action->text() == caption)
            action->trigger();
    }
}

void Click(QWidget *widget) {
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, widget->rect().center());
}

// Where a label's text stands inside the window, horizontally: [left, right).
std::pair<int, int> TextSpan(const QLabel *label, QWidget *window) {
    int width = 0;
    for (const QString &line : label->text().split(QLatin1Char('\n')))
        width = std::max(width, label->fontMetrics().horizontalAdvance(line));
    const QRect box = label->contentsRect();
    int left = box.left();
    if (label->alignment() & Qt::AlignRight)
        left = box.right() + 1 - width;
    else if (label->alignment() & Qt::AlignHCenter)
        left = box.left() + (box.width() - width) / 2;
    const int x = label->mapTo(window, QPoint(left, 0)).x();
    return {x, x + width};
}

// Prints the texts that do not fit their control, or come within 3 pixels of the next text
// on their line or of the window's edge.
int ReportCrowdedText(QWidget *window) {
    int found = 0;
    const auto report = [&](const QWidget *w, const char *what) {
        std::fprintf(stderr, "%s: %s %s\n", qPrintable(window->objectName()), qPrintable(w->objectName()), what);
        ++found;
    };
    QList<QLabel *> labels;
    for (QLabel *label : window->findChildren<QLabel *>()) {
        // The fold markers are drawn, not written.
        if (label->isVisibleTo(window) && !label->text().isEmpty() && !label->wordWrap() &&
            label->text() != QLatin1String("^"))
            labels.append(label);
    }
    for (QLabel *label : labels) {
        const auto [left, right] = TextSpan(label, window);
        const QRect box(label->mapTo(window, label->contentsRect().topLeft()), label->contentsRect().size());
        if (right - left > box.width())
            report(label, qPrintable(QStringLiteral("clipped: \"%1\"").arg(label->text())));
        if (right > window->width() - 3)
            report(label, "at the window's edge");
        for (QLabel *other : labels) {
            const QRect otherBox(other->mapTo(window, QPoint(0, 0)), other->size());
            const auto [otherLeft, otherRight] = TextSpan(other, window);
            if (other != label && otherBox.top() < box.bottom() && box.top() < otherBox.bottom() && otherLeft >= left &&
                otherLeft < right + 3)
                report(label, qPrintable(QStringLiteral("touches %1: \"%2\" \"%3\"")
                                             .arg(other->objectName(), label->text(), other->text())));
        }
    }
    for (QAbstractButton *button : window->findChildren<QAbstractButton *>()) {
        if (!button->isVisibleTo(window) || button->text().isEmpty())
            continue;
        const int text = button->fontMetrics().horizontalAdvance(button->text());
        const int chrome = qobject_cast<QPushButton *>(button)
                               ? button->style()->pixelMetric(QStyle::PM_ButtonMargin) +
                                     2 * button->style()->pixelMetric(QStyle::PM_DefaultFrameWidth)
                               : button->sizeHint().width() - text;
        if (text + chrome > button->width())
            report(button, qPrintable(QStringLiteral("clipped: \"%1\"").arg(button->text())));
    }
    return found;
}

bool Save(QWidget *window, const QString &folder, const QString &name) {
    QTest::qWait(200);
    if (window)
        ReportCrowdedText(window);
    const QString path = QDir(folder).filePath(name);
    if (!window || !window->grab().save(path)) {
        std::fprintf(stderr, "no screenshot %s\n", qPrintable(path));
        return false;
    }
    std::printf("%s\n", qPrintable(path));
    return true;
}

// The tour's five samples, each double-clicked into the first empty category.
void FillTemplate(QWidget *form1) {
    auto *list = form1->findChild<QTreeWidget *>(QStringLiteral("ListView1"));
    for (const char *name : {"Ridge Stalker", "Canopy Howler", "Dusk Prowler", "Grey Tusker", "Salt Runner"}) {
        const auto rows = list->findItems(QLatin1String(name), Qt::MatchExactly, 1);
        if (rows.isEmpty())
            continue;
        list->scrollToItem(rows.constFirst());
        const QPoint at = list->visualItemRect(rows.constFirst()).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, at);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    }
}

// Places a point on a row's first white box.
void PlacePoint(QWidget *form5, const char *row) {
    for (int b = 0; b < 10; ++b) {
        auto *box = form5->findChild<QWidget *>(QStringLiteral("%1_%2").arg(QLatin1String(row)).arg(b));
        if (box && box->isVisible() && box->palette().color(QPalette::Window) == Qt::white) {
            Click(box);
            return;
        }
    }
}

// Runs a point in three rows and leaves a fourth placed, not yet run.
void SpendPoints(QWidget *form5) {
    for (const char *row : {"Picture5", "Picture7", "Picture9"}) {
        PlacePoint(form5, row);
        Click(form5->findChild<QWidget *>(QStringLiteral("Command2")));
    }
    PlacePoint(form5, "Picture6");
}

void TypeSample(QWidget *form2) {
    const QStringList values{QStringLiteral("670"), QStringLiteral("663"),           QStringLiteral("526"),
                             QStringLiteral("553"), QStringLiteral("658"),           QStringLiteral("725"),
                             QStringLiteral("490"), QStringLiteral("559"),           QStringLiteral("552"),
                             QStringLiteral("579"), QStringLiteral("Ridge Stalker"), QStringLiteral("27")};
    for (int i = 0; i < values.size(); ++i) {
        auto *box = form2->findChild<QLineEdit *>(QStringLiteral("Text1_%1").arg(i));
        box->setFocus();
        QTest::keyClicks(box, values[i]);
        if (i < 11)
            QTest::keyClick(box, Qt::Key_Return);
    }
}

// The window `name` once it shows, made ready by `prepare`, saved and closed; false when it
// did not show or could not be saved.
bool SaveWindow(const QString &name, const QString &folder, const QString &file,
                const std::function<void(QWidget *)> &prepare = {}) {
    QWidget *window = Visible(name);
    if (!window)
        return false;
    if (prepare)
        prepare(window);
    const bool saved = Save(window, folder, file);
    window->close();
    return saved;
}

} // namespace

int main(int argc, char *argv[]) {
    QApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s OUTPUT_FOLDER SCALE_PERCENT\n", argv[0]);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QString scale = QString::fromLocal8Bit(argv[2]);
    QDir().mkpath(folder);

    // The settings file of the taker's own folder: the tour's file loaded at start, the
    // three equations and 8 points.
    QFile settings(QCoreApplication::applicationDirPath() + QStringLiteral("/quorvel.cfg"));
    if (!settings.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 1;
    settings.write("Load\r\n" + QFile::encodeName(QStringLiteral(QUORVEL_EXAMPLES "/starter-samples.txt")) +
                   "\r\nOld\r\nNew1\r\nNew2\r\nExp\r\n 8 \r\n");
    settings.close();
    QFile::remove(QCoreApplication::applicationDirPath() + QStringLiteral("/quorvel-pets.csv"));

    ApplyDisplayScale(scale.toInt());
    Form1 form1;
    form1.show();
    if (!QTest::qWaitForWindowExposed(&form1))
        return 1;
    FillTemplate(&form1);
    bool ok = Save(&form1, folder, QStringLiteral("main-%1.png").arg(scale));

    Click(form1.findChild<QWidget *>(QStringLiteral("Command7")));
    ok = SaveWindow(QStringLiteral("Form5"), folder, QStringLiteral("experiment-%1.png").arg(scale), SpendPoints) && ok;

    Trigger(&form1, QStringLiteral("Add DNA"));
    const auto typeLive = [](QWidget *form2) {
        Click(form2->findChild<QLabel *>(QStringLiteral("Label1")));
        TypeSample(form2);
    };
    ok = SaveWindow(QStringLiteral("Form2"), folder, QStringLiteral("adddna-%1.png").arg(scale), typeLive) && ok;

    Trigger(&form1, QStringLiteral("Find Template"));
    const auto search = [](QWidget *finder) {
        Click(finder->findChild<QWidget *>(QStringLiteral("finderSearch")));
        auto *results = finder->findChild<QTreeWidget *>(QStringLiteral("finderResults"));
        QTest::qWaitFor([results] { return results->topLevelItemCount() > 0; }, 10000);
    };
    ok = SaveWindow(QStringLiteral("FindTemplateWindow"), folder, QStringLiteral("finder-%1.png").arg(scale), search) &&
         ok;

    // Two pets of the tour's template, the second with its Physique emptied, side by side.
    quorvel::AppModel &model = form1.Model();
    model.StoreShownPet("Ridge Stalker team", "2026-11-25T12:00:00");
    model.ClearTemplate(quorvel::ClearScope::OneCategory, quorvel::Category::Physique);
    model.StoreShownPet("Without Physique", "2026-11-25T12:05:00");
    Trigger(&form1, QStringLiteral("Stored Pets"));
    const auto compare = [](QWidget *pets) {
        auto *table = pets->findChild<QAbstractItemView *>(QStringLiteral("storedPetsTable"));
        table->selectAll();
    };
    ok =
        SaveWindow(QStringLiteral("StoredPetsWindow"), folder, QStringLiteral("pets-%1.png").arg(scale), compare) && ok;

    Trigger(&form1, QStringLiteral("Options"));
    ok = SaveWindow(QStringLiteral("Form3"), folder, QStringLiteral("options-%1.png").arg(scale)) && ok;
    Trigger(&form1, QStringLiteral("About"));
    ok = SaveWindow(QStringLiteral("Form4"), folder, QStringLiteral("about-%1.png").arg(scale)) && ok;
    form1.close();
    return ok ? 0 : 1;
}
