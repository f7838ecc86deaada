// Loading, appending and saving DNA files, the Options window and starting the program again.
#include "SoakRun.h"

#include "Cp1252.h"
#include "DnaFile.h"
#include "Form1.h"
#include "Numeric.h"
#include "ProgramState.h"

#include <QCheckBox>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QScrollBar>
#include <QStatusBar>
#include <QTest>
#include <QTreeWidget>

#include <fstream>

using namespace quorvel;

namespace {

QString Caption(const QString &path) {
    return QStringLiteral("Quorvel v0.55 [%1]").arg(path);
}

} // namespace

void SoakRun::AddFileActions() {
    const auto always = [] { return true; };
    Add("load", 2, always, [this] { return LoadFile(QStringLiteral("Load"), true); });
    Add("load DNA", 2, always, [this] { return LoadFile(QStringLiteral("Load DNA"), true); });
    Add("append DNA", 4, always, [this] { return LoadFile(QStringLiteral("Append DNA"), false); });
    Add("save", 2, always, [this] { return SaveFile(QStringLiteral("Save")); });
    Add("save as", 2, always, [this] { return SaveFile(QStringLiteral("Save As")); });
    Add("save with data", 1, always, [this] { return SaveFile(QStringLiteral("Save With Data")); });
    Add("WYSIWYG", 2, always, [this] { return SaveFile(QStringLiteral("WYSIWYG")); });
    Add("options", 3, always, [this] { return Options(); });
    Add("start again", 2, always, [this] { return Restart(); });
    Add("recover unsaved samples", 2, always, [this] { return Recover(); });
}

// A file of good samples, written in the ways people write them: blanks, decimals and
// hexadecimal in the numbers, names in the Windows code page, fields left off at the end.
// `records` gets what each line reads as (an empty name becomes the slot number).
QString SoakRun::GoodFile(std::vector<DnaRecord> &records, bool &wholeFile) {
    const int count = Chance(4) ? 200 + Below(400) : 1 + Below(30);
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        DnaRecord r;
        QStringList fields;
        for (int a = 0; a < kAttributeCount; ++a) {
            const int kind = Below(10);
            const int v = kind == 0 ? Below(19999) - 9999 : kind == 1 ? Below(32768) : Below(1001);
            r.Attributes[static_cast<std::size_t>(a)] = static_cast<int16_t>(v);
            QString text = QString::number(v);
            if (text.size() <= 3 && Chance(15))
                text.prepend(QLatin1Char(' '));
            else if (text.size() <= 3 && Chance(10))
                text += QStringLiteral(".0");
            else if (v >= 0 && v < 0x1000 && Chance(5))
                text = QStringLiteral("&H") + QString::number(v, 16);
            fields << text;
        }
        QString name = Chance(10) ? QString() : NameText().left(300);
        name.replace(QLatin1Char(','), QLatin1Char(' '));
        const std::string bytesOfName = Utf8ToCp1252(name.toStdString());
        r.Name = Cp1252ToUtf8(bytesOfName);
        const int extra = Below(5);
        r.Level = static_cast<int16_t>(extra > 0 ? (Chance(10) ? Below(65536) - 32768 : Below(60)) : 0);
        r.Planet = static_cast<int16_t>(extra > 1 ? Below(12) : 0);
        r.Origin = static_cast<int16_t>(extra > 2 ? Below(2) : 0);
        static const std::vector<float> qualities{0, 1, 2, 3, 4, 5, 6, 7, 2.5f, 6.5f, 7.4f, 0.5f};
        r.Quality = extra > 3 ? OneOf(qualities) : 0.0f;
        QByteArray line = fields.join(QLatin1Char(',')).toLatin1() + ',' + QByteArray::fromStdString(bytesOfName);
        const std::array<QString, 4> optional{QString::number(r.Level), QString::number(r.Planet),
                                              QString::number(r.Origin), QString::number(double(r.Quality))};
        for (int f = 0; f < extra; ++f)
            line += ',' + optional[static_cast<std::size_t>(f)].toLatin1();
        bytes += line + "\r\n";
        records.push_back(r);
    }
    // A blank line after the last sample reads every sample but ends the reading early.
    wholeFile = !Chance(5);
    if (!wholeFile)
        bytes += "\r\n";
    const QString path = PathInFolder(QStringLiteral("good"));
    if (QFile file(path); file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.write(bytes);
    return path;
}

unsigned SoakRun::LoadFile(const QString &caption, bool replace) {
    const int count = ProgramState(Main()).Library().Count;
    const int base = replace ? 0 : count;
    const QString title = Main().windowTitle();
    std::vector<DnaRecord> records;
    bool wholeFile = true;
    bool known = false;
    QString path;
    const int kind = Below(20);
    if (kind < 11) {
        path = GoodFile(records, wholeFile);
        known = true;
    } else if (kind < 14 && !savedFiles_.isEmpty()) {
        path = savedFiles_[Below(static_cast<int>(savedFiles_.size()))];
    } else if (kind < 18) {
        // Saving may have written over a bad file since; every choice finds the set as made.
        badFiles_ = testsupport::WriteBadDnaFiles();
        const testsupport::BadDnaFile &bad = badFiles_[Below(static_cast<int>(badFiles_.size()) - 1)];
        path = bad.path;
        if (bad.atStart)
            QFile::remove(path);
    } else if (kind < 19) {
        path = PathInFolder(QStringLiteral("missing"));
    }
    Say(QStringLiteral("%1 of '%2'").arg(caption, QFileInfo(path).fileName()));
    const bool opens = QFileInfo(path).isFile();
    answer_.Begin(path);
    ClickToolbar(caption);

    const ProgramState after(Main());
    const DnaLibrary &loaded = after.Library();
    if (path.isEmpty()) {
        checks_.Check(loaded.Count == count && Main().windowTitle() == title,
                      QStringLiteral("a cancelled load changed the library or the caption"));
        return WholeCleared;
    }
    checks_.Check(after.LastDnaFile() == path, QStringLiteral("the file chosen is not the last DNA file"));
    if (replace && opens)
        checks_.Check(!after.LibraryChanged() && !QFileInfo::exists(ProgramState::RecoveryPath()),
                      QStringLiteral("a load left the library changed or the recovery file in place"));
    if (known) {
        const int fits = std::min(static_cast<int>(records.size()), kMaxSamples - base);
        const bool complete = wholeFile && base + static_cast<int>(records.size()) <= kMaxSamples;
        checks_.Check(
            loaded.Count == base + fits,
            QStringLiteral("%1 samples after reading %2 onto %3").arg(loaded.Count).arg(records.size()).arg(base));
        for (int i = 0; i < fits && i + base < loaded.Count; ++i) {
            DnaRecord expected = records[static_cast<std::size_t>(i)];
            if (expected.Name.empty())
                expected.Name = FormatWhole(base + i + 1);
            const QString differs = SameSample(loaded.Records[static_cast<std::size_t>(base + i + 1)], expected);
            if (!checks_.Check(differs.isEmpty(),
                               QStringLiteral("slot %1 was read as %2").arg(base + i + 1).arg(differs)))
                break;
        }
        checks_.Check(Main().windowTitle() == (complete ? Caption(path) : title),
                      QStringLiteral("caption '%1' after %2 reading")
                          .arg(Main().windowTitle(), complete ? QLatin1String("a whole") : QLatin1String("a cut")));
    } else {
        checks_.Check(loaded.Count >= base, QStringLiteral("a load of a broken file lost samples"));
        checks_.Check(Main().windowTitle() == title || Main().windowTitle() == Caption(path),
                      QStringLiteral("caption '%1' after a load").arg(Main().windowTitle()));
    }
    return WholeCleared;
}

unsigned SoakRun::SaveFile(const QString &caption) {
    const int mode = caption == QLatin1String("Save")             ? 10
                     : caption == QLatin1String("Save With Data") ? 1
                     : caption == QLatin1String("WYSIWYG")        ? 2
                                                                  : 0;
    const ProgramState state(Main());
    const bool direct = mode == 10 && !state.LastDnaFile().isEmpty();
    QString path;
    if (!direct) {
        const int kind = Below(10);
        if (kind < 5 || (kind < 7 && savedFiles_.isEmpty()))
            path = PathInFolder(QStringLiteral("saved"));
        else if (kind < 7)
            path = savedFiles_[Below(static_cast<int>(savedFiles_.size()))];
        else if (kind == 7)
            path = PathInFolder(QStringLiteral("in-a-file")) + QStringLiteral("/x.txt");
        else if (kind == 8)
            path = PathInFolder(QStringLiteral("no-folder")) + QStringLiteral("/x.txt");
        if (kind == 7)
            QFile(QFileInfo(path).path()).open(QIODevice::WriteOnly);
    }
    const bool yes = Chance(85);
    const QString target = direct ? state.LastDnaFile() : path;
    const QByteArray old = target.isEmpty() ? QByteArray() : testsupport::ReadFileBytes(target);
    const bool existed = QFileInfo(target).isFile();
    const bool writable = QFileInfo(QFileInfo(target).path()).isDir();
    std::vector<int> order;
    for (int row = 1; row <= state.Library().Count; ++row)
        order.push_back(mode == 2 ? List()->topLevelItem(row - 1)->text(0).toInt() : row);
    const ReadBack expected = ExpectedReadBack(state.Library(), order, mode == 1);
    const QString title = Main().windowTitle();

    Say(QStringLiteral("%1 to '%2', %3")
            .arg(caption, QFileInfo(target).fileName(), yes ? QLatin1String("yes") : QLatin1String("no")));
    answer_.Begin(path, yes);
    ClickToolbar(caption);

    const ProgramState after(Main());
    const QStringList &seen = answer_.Seen();
    const bool asked = seen.contains(QStringLiteral("box:Save DNA:Save to %1?").arg(target));
    const bool attempted = direct || (!path.isEmpty() && yes);
    const bool failed = answer_.SawBox(QStringLiteral("Save DNA")) &&
                        std::any_of(seen.begin(), seen.end(),
                                    [](const QString &s) { return s.contains(QLatin1String("Could not save")); });
    if (!direct && path.isEmpty()) {
        checks_.Check(seen.isEmpty() && Main().windowTitle() == title,
                      QStringLiteral("a cancelled save went on: %1").arg(seen.join(u'|')));
        return NoEffect;
    }
    checks_.Check(direct || (asked && after.LastDnaFile() == path),
                  QStringLiteral("the save did not ask or keep the path: %1").arg(seen.join(u'|')));
    if (!attempted || failed) {
        checks_.Check((target.isEmpty() || testsupport::ReadFileBytes(target) == old) &&
                          QFileInfo(target).isFile() == existed,
                      QStringLiteral("a save that was refused or failed changed %1").arg(target));
        checks_.Check(failed == (attempted && !writable),
                      QStringLiteral("a save to %1 failed: %2").arg(target).arg(failed));
        return NoEffect;
    }
    checks_.Check(writable, QStringLiteral("a save to %1 claimed success").arg(target));
    checks_.Check(!after.LibraryChanged() && !QFileInfo::exists(ProgramState::RecoveryPath()),
                  QStringLiteral("a save left the library changed or the recovery file in place"));
    checks_.Check(answer_.SawBox(QStringLiteral("Saved")) == direct,
                  QStringLiteral("\"Saved\" shown wrongly: %1").arg(seen.join(u'|')));
    checks_.Check(Main().windowTitle() == Caption(target),
                  QStringLiteral("caption '%1' after a save").arg(Main().windowTitle()));
    const QString readBack = CheckReadBack(target, expected);
    checks_.Check(readBack.isEmpty(), readBack);
    if (!savedFiles_.contains(target))
        savedFiles_ << target;
    // Now and then the file just saved is loaded through the window again.
    if (mode != 1 && Chance(30))
        return LoadBack(target, expected);
    return NoEffect;
}

unsigned SoakRun::LoadBack(const QString &path, const ReadBack &expected) {
    Say(QStringLiteral("loaded it back"));
    answer_.Begin(path);
    ClickToolbar(QStringLiteral("Load DNA"));
    const DnaLibrary &library = ProgramState(Main()).Library();
    const auto count = static_cast<std::size_t>(library.Count);
    if (!checks_.Check(
            expected.foretold ? count == expected.records.size() : count >= expected.records.size(),
            QStringLiteral("%1 samples loaded back, %2 saved").arg(library.Count).arg(expected.records.size())))
        return WholeCleared;
    for (std::size_t i = 0; i < expected.records.size(); ++i) {
        const QString differs = SameSample(library.Records[i + 1], expected.records[i]);
        if (!checks_.Check(differs.isEmpty(), QStringLiteral("slot %1 loaded back as %2").arg(i + 1).arg(differs)))
            break;
    }
    // (A save just put the path in the caption; a reading cut short leaves it there.)
    if (expected.foretold && expected.complete)
        checks_.Check(Main().windowTitle() == Caption(path),
                      QStringLiteral("caption '%1' after loading back").arg(Main().windowTitle()));
    return WholeCleared;
}

unsigned SoakRun::Options() {
    ClickToolbar(QStringLiteral("Options"));
    QWidget *window = Open("Form3");
    if (!checks_.Check(window, QStringLiteral("the Options window did not open")))
        return NoEffect;
    const quorvel::Settings &settings = ProgramState(Main()).Settings();
    checks_.Check(settings.ExpPoints >= 1 && settings.ExpPoints <= 12,
                  QStringLiteral("%1 points with the Options window open").arg(settings.ExpPoints));
    for (int clicks = Below(4); clicks > 0; --clicks) {
        const int i = Below(kSettingCount);
        testsupport::ClickWidget(In<QCheckBox>(window, QStringLiteral("Check1_%1").arg(i)));
        Say(QStringLiteral("option %1").arg(i));
    }
    auto *points = In<QScrollBar>(window, QStringLiteral("HScroll1"));
    for (int steps = Below(4); steps > 0; --steps)
        QTest::keyClick(points, Chance(50) ? Qt::Key_Right : Qt::Key_Left);
    std::array<bool, kSettingCount> boxes{};
    for (int i = 0; i < kSettingCount; ++i)
        boxes[static_cast<std::size_t>(i)] = In<QCheckBox>(window, QStringLiteral("Check1_%1").arg(i))->isChecked();
    const int value = points->value();
    const int how = Below(20);
    if (how < 12) {
        Say(QStringLiteral("saved"));
        testsupport::ClickWidget(In<QPushButton>(window, QStringLiteral("Command4")));
        const quorvel::Settings &saved = ProgramState(Main()).Settings();
        checks_.Check(saved.Options == boxes && saved.ExpPoints == value,
                      QStringLiteral("the options saved are not the boxes"));
    } else if (how < 17) {
        Say(QStringLiteral("cancelled"));
        testsupport::ClickWidget(In<QPushButton>(window, QStringLiteral("Command1")));
    } else if (how < 19) {
        Say(QStringLiteral("closed"));
        window->close();
    } else {
        Say(QStringLiteral("left open"));
    }
    return NoEffect;
}

// Closing asks nothing and writes nothing over the user's file; samples no file holds go to
// the recovery file, which the next start tells of.
unsigned SoakRun::Restart() {
    const ProgramState before(Main());
    const quorvel::Settings settings = before.Settings();
    const QString last = before.LastDnaFile();
    const QString recovery = ProgramState::RecoveryPath();
    const QByteArray lastBytes = last.isEmpty() ? QByteArray() : testsupport::ReadFileBytes(last);
    const QByteArray oldRecovery = testsupport::ReadFileBytes(recovery);
    const bool recoveryThere = QFileInfo(recovery).isFile();
    const bool unsaved = before.LibraryChanged() && before.Library().Count > 0;
    std::vector<int> order;
    for (int slot = 1; slot <= before.Library().Count; ++slot)
        order.push_back(slot);
    const ReadBack expected = ExpectedReadBack(before.Library(), order, false);
    Say(unsaved ? QStringLiteral("with unsaved samples") : QStringLiteral("with nothing unsaved"));
    Main().close();
    form_.reset();
    Settle();
    checks_.Check(last.isEmpty() || testsupport::ReadFileBytes(last) == lastBytes,
                  QStringLiteral("closing wrote over the last DNA file"));
    if (unsaved) {
        const QString readBack = CheckReadBack(recovery, expected);
        checks_.Check(readBack.isEmpty(), QStringLiteral("the recovery file: %1").arg(readBack));
    } else {
        checks_.Check(QFileInfo(recovery).isFile() == recoveryThere &&
                          testsupport::ReadFileBytes(recovery) == oldRecovery,
                      QStringLiteral("closing with nothing unsaved changed the recovery file"));
    }
    form_ = testsupport::MakeForm1();
    checks_.Restarted();
    const ProgramState after(Main());
    checks_.Check(after.Settings().Options == settings.Options &&
                      after.Settings().ExpPoints == ClampExpPoints(settings.ExpPoints),
                  QStringLiteral("the options did not come back at the next start"));
    checks_.Check(after.LastDnaFile() == (settings[quorvel::Setting::Load] ? last : QString()),
                  QStringLiteral("the last DNA file came back as '%1'").arg(after.LastDnaFile()));
    const QString note = In<QStatusBar>(&Main(), QStringLiteral("StatusBar1"))->currentMessage();
    checks_.Check(note.contains(QLatin1String("Unsaved samples")) == QFileInfo(recovery).isFile(),
                  QStringLiteral("the status bar says '%1'").arg(note));
    return NoEffect;
}

// "Recover Unsaved Samples" appends the recovery file's samples as "Append DNA" does; the
// caption and the last DNA file stay the user's.
unsigned SoakRun::Recover() {
    const QString recovery = ProgramState::RecoveryPath();
    const bool there = QFileInfo(recovery).isFile();
    const ProgramState state(Main());
    const int count = state.Library().Count;
    const QString title = Main().windowTitle();
    const QString last = state.LastDnaFile();
    // The file read onto a library as full as the program's: names left empty get the same slots.
    auto file = std::make_unique<DnaLibrary>();
    file->Count = static_cast<int16_t>(count);
    if (there) {
        std::ifstream in(QFile::encodeName(recovery).toStdString(), std::ios::binary);
        LoadDnaStream(in, *file, nullptr);
    }
    const int added = file->Count - count;
    Say(there ? QStringLiteral("%1 samples").arg(added) : QStringLiteral("none there"));
    testsupport::ToolbarAction(&Main(), QStringLiteral("Recover Unsaved Samples"))->trigger();
    if (!there)
        return NoEffect;
    const DnaLibrary &library = state.Library();
    checks_.Check(library.Count == file->Count,
                  QStringLiteral("%1 samples after recovering %2 onto %3").arg(library.Count).arg(added).arg(count));
    for (int slot = count + 1; slot <= file->Count && slot <= library.Count; ++slot) {
        const QString differs =
            SameSample(library.Records[static_cast<std::size_t>(slot)], file->Records[static_cast<std::size_t>(slot)]);
        if (!checks_.Check(differs.isEmpty(), QStringLiteral("slot %1 recovered as %2").arg(slot).arg(differs)))
            break;
    }
    checks_.Check(Main().windowTitle() == title && state.LastDnaFile() == last,
                  QStringLiteral("recovering changed the caption or the last DNA file"));
    checks_.Check(state.LibraryChanged() || added == 0, QStringLiteral("recovered samples count as saved"));
    return WholeCleared;
}
