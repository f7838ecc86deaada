#include "Form1.h"

#include "StoredPetsWindow.h"
#include "WholeFile.h"
#include "WindowUtil.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStatusBar>

#include <string_view>

namespace {

// A file of stored pets is some hundred bytes a pet; anything beyond this is no such file.
constexpr qint64 kMostPetsBytes = 64 << 20;
// The status bar names at most this many skipped lines.
constexpr std::size_t kLinesNamed = 10;

QString LineList(const std::vector<int> &lines) {
    QStringList numbers;
    for (std::size_t i = 0; i < lines.size() && i < kLinesNamed; ++i)
        numbers.append(QString::number(lines[i]));
    if (lines.size() > kLinesNamed)
        numbers.append(QStringLiteral("and %1 more").arg(lines.size() - kLinesNamed));
    return numbers.join(QStringLiteral(", "));
}

} // namespace

void Form1::ShowStoredPets() {
    // A closed window waits for its deletion until the event loop runs again; the next
    // opening already gets a fresh one.
    if (!storedPets_ || !storedPets_->isVisible())
        storedPets_ = new StoredPetsWindow(model_, hub_, petUndo_, ProgramFolder());
    ShowOrFocusWindow(storedPets_);
}

void Form1::ReadStoredPetsFile() {
    const QString path = StoredPetsPath();
    QFile file(path);
    if (!file.exists())
        return;
    if (!file.open(QIODevice::ReadOnly) || file.size() > kMostPetsBytes) {
        petsFileWritable_ = false;
        StatusBar1->showMessage(
            QStringLiteral("Stored pets could not be read from %1; it is left as it is.").arg(path));
        return;
    }
    const QByteArray bytes = file.readAll();
    const std::vector<int> bad = model_.ReadStoredPetsText(std::string_view(bytes.constData(), bytes.size()));
    if (bad.empty())
        return;
    // The next change writes the pets that were read; the file as it was is kept beside it.
    const QString kept = path + QStringLiteral(".bad");
    QFile::remove(kept);
    petsFileWritable_ = QFile::copy(path, kept);
    const QString lines = bad.size() == 1 ? QStringLiteral("line %1 was").arg(bad.front())
                                          : QStringLiteral("lines %1 were").arg(LineList(bad));
    StatusBar1->showMessage(
        petsFileWritable_
            ? QStringLiteral("Stored pets: %1 skipped in %2; the whole file is kept as %3.").arg(lines, path, kept)
            : QStringLiteral("Stored pets: %1 skipped in %2, which is left as it is.").arg(lines, path));
}

void Form1::WriteStoredPetsFile() {
    const QString path = StoredPetsPath();
    if (!petsFileWritable_) {
        StatusBar1->showMessage(
            QStringLiteral("Stored pets are not saved over %1, which could not be kept.").arg(path));
        return;
    }
    QDir().mkpath(QFileInfo(path).path());
    const QString failure = WriteWholeFile(path, model_.StoredPetsText());
    if (!failure.isEmpty())
        StatusBar1->showMessage(QStringLiteral("Stored pets could not be saved to %1: %2").arg(path, failure));
}
