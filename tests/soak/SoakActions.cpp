// What the soak does: one entry per kind of user action, with the checks of its own.
#include "Soak.h"

#include "Cp1252.h"
#include "DnaFile.h"
#include "Numeric.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QToolBar>
#include <QToolButton>

#include <numeric>

using namespace quorvel;

namespace {

const QString kSampleControls = Numbered("Text1_", 12) + QStringLiteral(" Combo1 Combo2 Option1_0 Option1_1 Check1");
const QString kSessionBoxes =
    QStringList{Numbered("Picture5_", 10), Numbered("Picture6_", 10), Numbered("Picture7_", 10),
                Numbered("Picture8_", 10), Numbered("Picture9_", 10)}
        .join(u' ');

// Clicks into a box and types: short plain texts key by key, others as a paste. Mostly the
// old text is replaced; sometimes the typing goes on after it.
void Type(Soak &s, QLineEdit *box, const QString &text) {
    static const QRegularExpression unusual(QStringLiteral("[^ -~]"));
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(2, box->height() / 2));
    s.Chance(80) ? box->selectAll() : box->end(false);
    if (text.isEmpty())
        QTest::keyClick(box, Qt::Key_Backspace);
    else if (text.size() > 30 || text.contains(unusual))
        box->insert(text);
    else
        QTest::keyClicks(box, text);
    s.Say(QStringLiteral("typed '%1'").arg(text.left(40)));
}

// Letters, digits, signs and a few characters from beyond Latin-1.
QString Noise(Soak &s, int length) {
    static const QString pool = QStringLiteral(" aAzZ09.,-+E&HO;?é€\u0101\u4e2d'\"");
    QString text;
    while (length-- > 0)
        text += s.OneOf(pool);
    return text;
}

// Numbers as people type them, and what they type by mistake.
QString NumberText(Soak &s) {
    static const QStringList odd =
        QStringLiteral("|abc|12abc|-|.|1,5|32767|32768|-32768|-32769|99999999999999999999|1e400|-0|+7| 1 2 |2.5|-2.5")
            .split(u'|');
    const QString forms[]{QString::number(s.Below(1001)),
                          QString::number(s.Below(1001)),
                          QString::number(s.Below(85536) - 42768),
                          QStringLiteral("%1.5").arg(s.Below(2001) - 1000),
                          QStringLiteral("&H") + QString::number(s.Below(0x10000), 16).toUpper(),
                          s.OneOf(odd),
                          Noise(s, 1 + s.Below(12)),
                          QString(1000 + s.Below(4000), u'9')};
    return s.OneOf(forms);
}

QString NameText(Soak &s) {
    static const QStringList names =
        QStringLiteral("Kusak Alpha|Mott|Bol  |-|New DNA|Rex, the second||Crème brûlée|€ 5").split(u'|');
    const int kind = s.Below(6);
    return kind == 0 ? Noise(s, 1 + s.Below(20)) : kind == 1 ? Noise(s, 2000 + s.Below(8000)) : s.OneOf(names);
}

// Opens the drop-down list and clicks an entry, or types into the box.
void Choose(Soak &s, QComboBox *combo) {
    static const QStringList typed = QStringLiteral("Lok|naboo|HQ|vhq|?|Any|Tatooine|xyz|").split(u'|');
    if (combo->count() == 0 || s.Chance(40))
        return Type(s, combo->lineEdit(), s.Chance(80) ? s.OneOf(typed) : Noise(s, s.Below(8)));
    QAbstractItemView *view = combo->view();
    const QModelIndex item = view->model()->index(s.Below(combo->count()), combo->modelColumn());
    combo->showPopup();
    view->scrollTo(item);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->visualRect(item).center());
    if (view->isVisible())
        combo->hidePopup();
    s.Say(QStringLiteral("entry %1").arg(item.row()));
}

// A file of good samples with names in the Windows code page, a decimal point now and then
// and fields left off at the end. `expected` gets what a reading onto `base` samples gives (a
// name left empty reads as the slot number).
QString GoodFile(Soak &s, Samples &expected, int base) {
    static const float qualities[]{0, 1, 2, 3, 4, 5, 6, 7, 2.5f, 6.5f, 7.4f, 0.5f};
    const int count = s.Chance(4) ? 200 + s.Below(400) : 1 + s.Below(30);
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        DnaRecord r;
        for (int16_t &v : r.Attributes) {
            const int kind = s.Below(10);
            v = int16_t(kind == 0 ? s.Below(19999) - 9999 : kind == 1 ? s.Below(32768) : s.Below(1001));
            bytes += QByteArray::number(v) + (v >= 0 && v < 1000 && s.Chance(10) ? ".0," : ",");
        }
        const QString typed = s.Chance(10) ? QString() : NameText(s).left(300).replace(u',', u' ');
        const std::string name = Utf8ToCp1252(typed.toStdString());
        bytes += QByteArray::fromStdString(name);
        r.Name = name.empty() ? FormatWhole(base + i + 1) : Cp1252ToUtf8(name);
        const int extra = s.Below(5);
        r.Level = int16_t(extra > 0 ? (s.Chance(10) ? s.Below(65536) - 32768 : s.Below(60)) : 0);
        r.Planet = int16_t(extra > 1 ? s.Below(12) : 0);
        r.Origin = int16_t(extra > 2 ? s.Below(2) : 0);
        r.Quality = extra > 3 ? s.OneOf(qualities) : 0.0f;
        const double fields[]{double(r.Level), double(r.Planet), double(r.Origin), double(r.Quality)};
        for (int f = 0; f < extra; ++f)
            bytes += ',' + QByteArray::number(fields[f]);
        bytes += "\r\n";
        if (base + i < kMaxSamples)
            expected.records.push_back(r);
    }
    // A blank line after the last sample reads every sample but ends the reading early.
    const bool blankEnd = s.Chance(5);
    expected.complete = !blankEnd && base + count <= kMaxSamples;
    const QString path = s.NewPath("good");
    if (QFile file(path); file.open(QIODevice::WriteOnly))
        file.write(blankEnd ? bytes + "\r\n" : bytes);
    return path;
}

QByteArray Bytes(const QString &path) {
    return path.isEmpty() ? QByteArray() : testsupport::ReadFileBytes(path);
}

QString Caption(const QString &path) {
    return QStringLiteral("Quorvel v0.55 [%1]").arg(path);
}

// A row's sample goes to a category by the menu, or picked and dropped on the category.
unsigned Send(Soak &s, int category) {
    const int row = s.AnyRow();
    const int how = s.Below(3);
    s.Say(QStringLiteral("row %1 to %2 by %3").arg(row).arg(category).arg(how));
    const QString target = QStringLiteral("%1_%2").arg(QLatin1String(how == 1 ? "Picture1" : "List1")).arg(category);
    if (how == 0) {
        testsupport::SendToCategory(&s.Main(), row, category);
    } else {
        testsupport::ClickRow(s.List(), row);
        testsupport::DropOn(how == 1 ? s.In("Form1", target) : s.In<QListWidget>("Form1", target)->viewport());
    }
    return Evaluated;
}

// A secondary window is left by its button or its close box.
unsigned Leave(Soak &s, const char *window) {
    if (s.Chance(70))
        return s.Drive(window, "Command1");
    return Soak::Open(window)->close(), NoEffect;
}

unsigned Options(Soak &s) {
    s.ClickToolbar(QStringLiteral("Options"));
    for (int clicks = s.Below(4); clicks > 0; --clicks)
        s.Drive("Form3", Numbered("Check1_", kSettingCount));
    for (int steps = s.Below(4); steps > 0; --steps)
        QTest::keyClick(s.In("Form3", "HScroll1"), s.Chance(50) ? Qt::Key_Right : Qt::Key_Left);
    // Saved, cancelled, closed or left open.
    const int how = s.Below(20);
    if (how < 17)
        s.Drive("Form3", how < 12 ? "Command4" : "Command1");
    else if (how < 19)
        Soak::Open("Form3")->close();
    return NoEffect;
}

// A load through the dialog of `path` onto `base` samples; `expected` is what it gives when
// that is known. A whole reading puts the path in the caption.
unsigned LoadPath(Soak &s, const QString &caption, int base, const QString &path, const Samples *expected) {
    const int count = s.Model().Library().Count;
    const QString title = s.Main().windowTitle();
    s.Say(QFileInfo(path).fileName());
    s.Plan(path);
    s.ClickToolbar(caption);
    const DnaLibrary &library = s.Model().Library();
    const bool whole = s.Main().windowTitle() == Caption(path), same = s.Main().windowTitle() == title;
    const QString differs = expected ? s.Differs(library, base, *expected) : QString();
    s.Check(path.isEmpty() ? library.Count == count && same
                           : differs.isEmpty() && library.Count >= base && s.LastFile() == path &&
                                 (expected && expected->foretold ? (expected->complete ? whole : same) : whole || same),
            QStringLiteral("%1 of '%2' gave %3 samples and the caption '%4': %5")
                .arg(caption, path, QString::number(library.Count), s.Main().windowTitle(), differs));
    return Cleared;
}

// A good file whose reading is foretold, a file saved before, a broken one, a missing one, or
// the dialog cancelled.
unsigned Load(Soak &s) {
    static const QStringList captions = QStringLiteral("Load|Load DNA|Append DNA|Append DNA").split(u'|');
    const QString caption = s.OneOf(captions);
    const int base = caption == captions.last() ? s.Model().Library().Count : 0;
    Samples expected;
    QString path;
    const int kind = s.Below(20);
    if (kind < 11) {
        path = GoodFile(s, expected, base);
    } else if (kind < 14 && !s.saved_.isEmpty()) {
        path = s.OneOf(s.saved_);
    } else if (kind < 18) {
        // Saving may have written over a broken file since; each choice finds the set as made.
        const auto broken = testsupport::WriteBadDnaFiles();
        path = broken[s.Below(int(broken.size()) - 1)].path;
    } else if (kind < 19) {
        path = s.NewPath("missing");
    }
    return LoadPath(s, caption, base, path, kind < 11 ? &expected : nullptr);
}

// The four saves: to new files, over old ones, to paths that cannot be written, refused with
// No or cancelled. A save that fails or is refused leaves the file as it was; one that works
// writes what loads back as the library.
unsigned Save(Soak &s) {
    static const QStringList captions =
        QStringLiteral("Save|Save|Save As|Save As|Save With Data|WYSIWYG|WYSIWYG").split(u'|');
    const QString caption = s.OneOf(captions);
    const bool direct = caption == captions[0] && !s.LastFile().isEmpty();
    const int kind = direct ? 9 : s.Below(10);
    QString path = kind < 5 || (kind < 7 && s.saved_.isEmpty()) ? s.NewPath("saved")
                   : kind < 7                                   ? s.OneOf(s.saved_)
                                                                : QString();
    if (kind == 7 || kind == 8)
        path = s.NewPath(kind == 7 ? "in-a-file" : "no-folder") + QStringLiteral("/x.txt");
    if (kind == 7)
        QFile(QFileInfo(path).path()).open(QIODevice::WriteOnly);
    const bool yes = s.Chance(85);
    const QString target = direct ? s.LastFile() : path;
    const QByteArray old = Bytes(target);
    const bool existed = QFileInfo(target).isFile();
    const bool attempted = direct || (!path.isEmpty() && yes);
    const bool writable = QFileInfo(QFileInfo(target).path()).isDir();
    std::vector<int> order;
    for (int row = 1; row <= s.Model().Library().Count; ++row)
        order.push_back(caption == captions.last() ? s.List()->topLevelItem(row - 1)->text(0).toInt() : row);
    const Samples expected = s.Written(order, caption == captions[4]);
    s.Say(
        QStringLiteral("%1 to '%2', %3").arg(caption, QFileInfo(target).fileName(), QLatin1String(yes ? "yes" : "no")));
    s.Plan(path, yes);
    s.ClickToolbar(caption);
    const bool failed = s.SawBox(QStringLiteral("Save DNA"), QStringLiteral("Could not save"));
    if (!attempted || failed)
        return s.Check(Bytes(target) == old && QFileInfo(target).isFile() == existed &&
                           failed == (attempted && !writable),
                       QStringLiteral("a refused or failed save changed %1: ").arg(target) + s.seen_.join(u'|')),
               NoEffect;
    s.Check(!s.Model().LibraryChanged() && s.LastFile() == target && s.Main().windowTitle() == Caption(target),
            QStringLiteral("the save to %1 left the library changed or the caption '%2'")
                .arg(target, s.Main().windowTitle()));
    s.CheckFile(target, expected);
    if (!s.saved_.contains(target))
        s.saved_ << target;
    // Now and then the file just saved is loaded through the window again.
    return caption != captions[4] && s.Chance(30) ? LoadPath(s, QStringLiteral("Load DNA"), 0, target, &expected)
                                                  : NoEffect;
}

// Closing asks nothing and writes nothing over the user's file; samples no file holds go to
// the recovery file.
unsigned Restart(Soak &s) {
    const QString last = s.LastFile(), recovery = Soak::RecoveryPath();
    const QByteArray lastBytes = Bytes(last), recoveryBytes = Bytes(recovery);
    const bool unsaved = s.Model().LibraryChanged() && s.Model().Library().Count > 0;
    std::vector<int> order(std::size_t(s.Model().Library().Count));
    std::iota(order.begin(), order.end(), 1);
    const Samples expected = s.Written(order, false);
    s.Main().close();
    s.form_.reset();
    s.Settle();
    s.Check(Bytes(last) == lastBytes && (unsaved || Bytes(recovery) == recoveryBytes),
            QStringLiteral("closing wrote over the last DNA file or the recovery file"));
    if (unsaved)
        s.CheckFile(recovery, expected);
    s.form_ = testsupport::MakeForm1();
    s.Restarted();
    return NoEffect;
}

} // namespace

unsigned Soak::Drive(const char *window, QAnyStringView names, unsigned effect) {
    const QString name = OneOf(names.toString().split(u' '));
    QWidget *w = In(window, name);
    Say(name);
    if (!w->isVisible())
        return NoEffect;
    const bool enabled = w->isEnabled();
    if (auto *combo = qobject_cast<QComboBox *>(w))
        Choose(*this, combo);
    else if (auto *box = qobject_cast<QLineEdit *>(w))
        Type(*this, box, name == QLatin1String("Text1_10") ? NameText(*this) : NumberText(*this));
    else if (qobject_cast<QAbstractButton *>(w) && !qobject_cast<QPushButton *>(w))
        QTest::mouseClick(w, Qt::LeftButton, Qt::NoModifier, QPoint(8, w->height() / 2)); // on the mark
    else
        testsupport::ClickWidget(w);
    return enabled ? effect : NoEffect;
}

// A button of its own is clicked; an entry of a button's menu is chosen from the menu.
void Soak::ClickToolbar(const QString &caption) {
    QAction *action = testsupport::ToolbarAction(&Main(), caption);
    if (auto *button = qobject_cast<QToolButton *>(In<QToolBar>("Form1", "Toolbar1")->widgetForAction(action)))
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, QPoint(4, button->height() / 2));
    else
        action->trigger();
}

const std::vector<SoakAction> kSoakActions{
    {"load", 8, "", Load},
    {"save", 7, "", Save},
    {"options", 3, "", Options},
    {"start again", 2, "", Restart},
    {"recover unsaved samples", 2, "",
     [](Soak &s) {
         const bool there = QFileInfo::exists(Soak::RecoveryPath());
         s.ClickToolbar(QStringLiteral("Recover Unsaved Samples"));
         return there ? Cleared : NoEffect;
     }},
    {"header click", 4, "ListView1",
     [](Soak &s) {
         const int column = 1 + s.Below(15);
         QHeaderView *header = s.List()->header();
         if (s.List()->topLevelItemCount() > 0)
             s.List()->scrollTo(s.List()->model()->index(0, column));
         const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
         if (header->sectionSize(column) < 2 || x < 0 || x >= header->viewport()->width())
             return NoEffect;
         return testsupport::ClickHeader(s.List(), column), Sorted;
     }},
    {"pick a row", 10, "rows",
     [](Soak &s) {
         const int row = s.AnyRow();
         const int slot = s.List()->topLevelItem(row - 1)->text(0).toInt();
         testsupport::ClickRow(s.List(), row);
         const DnaLibrary &library = s.Model().Library();
         return s.Check(library.SelectedRecord == slot && library.SelectedRow == row,
                        QStringLiteral("row %1 (slot %2) is not the one selected").arg(row).arg(slot)),
                NoEffect;
     }},
    {"send a row to a category", 14, "rows", [](Soak &s) { return Send(s, s.Below(5)); }},
    {"fill the template", 5, "rows",
     [](Soak &s) {
         for (int c = 0; c < 5; ++c)
             Send(s, c);
         return Evaluated;
     }},
    {"double-click a row", 4, "rows",
     [](Soak &s) {
         const bool room = FirstFreeCategory(s.Model().Template()).has_value();
         testsupport::DoubleClickRow(s.List(), s.AnyRow());
         return room ? Evaluated : NoEffect;
     }},
    {"drop on the prediction label", 2, "Label3",
     [](Soak &s) {
         if (s.List()->topLevelItemCount() > 0 && s.Chance(70))
             testsupport::ClickRow(s.List(), s.AnyRow());
         return testsupport::DropOn(s.In("Form1", "Label3")), SampleShown;
     }},
    {"empty a category", 3, "",
     [](Soak &s) {
         QWidget *list = s.In<QListWidget>("Form1", QStringLiteral("List1_%1").arg(s.Below(5)))->viewport();
         return QTest::mouseDClick(list, Qt::LeftButton, Qt::NoModifier, list->rect().center()), Evaluated;
     }},
    {"toggle +", 4, "", [](Soak &s) { return s.Drive("Form1", Numbered("Command2_", 5), Evaluated); }},
    {"Clear", 1, "", [](Soak &s) { return s.ClickToolbar(QStringLiteral("Clear")), unsigned(Cleared); }},
    {"Clear Experiment", 1, "", [](Soak &s) { return s.Drive("Form1", "Command6", Evaluated); }},
    {"Simulate Exp. Session", 3, "",
     [](Soak &s) { return s.Drive("Form1", "Command7", Soak::Open("Form5") ? Evaluated : Evaluated | SessionShown); }},
    {"E", 2, "Command8",
     [](Soak &s) {
         const unsigned opens = Soak::Open("Form5") ? NoEffect : SessionShown;
         if (s.List()->topLevelItemCount() > 0 && s.Chance(50))
             testsupport::ClickRow(s.List(), s.AnyRow());
         return s.Drive("Form1", "Command8"), Evaluated | opens;
     }},
    {"click a session box", 12, "Form5", [](Soak &s) { return s.Drive("Form5", kSessionBoxes); }},
    {"Run Experiment!", 5, "Form5", [](Soak &s) { return s.Drive("Form5", "Command2", SessionShown); }},
    {"Reset", 1, "Form5", [](Soak &s) { return s.Drive("Form5", "Command3", SessionShown); }},
    {"Done Experimenting", 2, "Form5", [](Soak &s) { return Leave(s, "Form5"); }},
    {"session always on top", 1, "Form5", [](Soak &s) { return s.Drive("Form5", "Check1"); }},
    {"use the editor", 17, "", [](Soak &s) { return s.Drive("Form1", kSampleControls); }},
    {"Enter or Tab in the editor", 3, "",
     [](Soak &s) {
         QWidget *box = s.In("Form1", QStringLiteral("Text1_%1").arg(s.Below(12)));
         box->setFocus(Qt::MouseFocusReason);
         return QTest::keyClick(box, s.Chance(70) ? Qt::Key_Return : Qt::Key_Tab), NoEffect;
     }},
    {"Edit", 4, "", [](Soak &s) { return s.Drive("Form1", "Command3"); }},
    {"New", 3, "", [](Soak &s) { return s.Drive("Form1", "Command4"); }},
    {"Add DNA", 2, "", [](Soak &s) { return s.ClickToolbar(QStringLiteral("Add DNA")), unsigned(NoEffect); }},
    {"use Add DNA", 15, "Form2", [](Soak &s) { return s.Drive("Form2", kSampleControls + QStringLiteral(" Label1")); }},
    {"Add DNA Save", 6, "Form2", [](Soak &s) { return s.Drive("Form2", "Command4"); }},
    {"Add DNA Exit", 2, "Form2", [](Soak &s) { return Leave(s, "Form2"); }},
    {"fold", 3, "",
     [](Soak &s) {
         return s.Drive("Form1", Numbered("Label2_", 5) + QStringLiteral(" Label1 Label4 Label41 Command5"));
     }},
    {"choose a skin", 2, "Combo3", [](Soak &s) { return s.Drive("Form1", "Combo3"); }},
    {"resize", 2, "",
     [](Soak &s) {
         const int how = s.Below(10);
         how == 0   ? s.Main().showMinimized()
         : how == 1 ? s.Main().showMaximized()
         : how == 2 ? s.Main().showNormal()
                    : s.Main().resize(500 + s.Below(900), 400 + s.Below(600));
         return NoEffect;
     }},
    {"toolbar", 7, "",
     [](Soak &s) {
         static const QStringList captions =
             QStringLiteral("No Sort|No Sort|DNA View|Pet View|Filter|Filter On|About").split(u'|');
         s.ClickToolbar(s.OneOf(captions));
         return Soak::Open("Form4") && s.Chance(70) ? s.Drive("Form4", "Command4") : NoEffect;
     }},
};
