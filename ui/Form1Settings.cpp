#include "Form1.h"

#include "DnaListPanel.h"
#include "EditorPanel.h"
#include "Form3.h"
#include "Twips.h"
#include "WindowUtil.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPushButton>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>
#include <cmath>

using namespace quorvel;

namespace {

// A settings file is a few hundred bytes; anything beyond this is not read.
constexpr qint64 kMostSettingsBytes = 1 << 20;
// Lengths from a hand-edited file are kept on the screen's scale before they reach a widget.
constexpr double kFarTwips = 150000.0;

// The settings file lies in the program's folder. An installed program, whose folder the user
// cannot write, keeps it in the user's configuration folder instead (~/.config/quorvel).
QString SettingsFolder(const QString &programFolder) {
    if (QFileInfo(programFolder).isWritable())
        return programFolder;
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

QString SettingsPath(const QString &folder) {
    return SettingsFolder(folder) + QStringLiteral("/quorvel.cfg");
}

// A user without a settings file of their own starts from the default installed beside the
// program; the first exit then writes theirs.
QString SettingsReadPath(const QString &programFolder) {
    const QString own = SettingsPath(programFolder);
    return QFileInfo::exists(own) ? own : programFolder + QStringLiteral("/quorvel.cfg");
}

// The pixels a length or position of the file is shown with.
int ShownPx(double twips) {
    return TwipsToPx(static_cast<int>(std::floor(std::clamp(twips, -kFarTwips, kFarTwips))));
}

// The window's normal place and size without its frame; also what a minimized or
// maximized window returns to.
std::array<int, 4> PlacementPx(const QWidget &window) {
    QRect normal = window.normalGeometry();
    if (normal.isEmpty())
        normal = window.geometry();
    return {normal.x(), normal.y(), normal.width(), normal.height()};
}

} // namespace

QString Form1::StoredPetsPath() const {
    return SettingsFolder(ProgramFolder()) + QStringLiteral("/quorvel-pets.csv");
}

QString Form1::RecoveryPath() const {
    return SettingsFolder(ProgramFolder()) + QStringLiteral("/quorvel-unsaved.txt");
}

void Form1::ReadSettingsFile() {
    QFile file(SettingsReadPath(ProgramFolder()));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QByteArray bytes = file.read(kMostSettingsBytes);
    const SettingsFileData data = ReadSettingsText(std::string_view(bytes.constData(), bytes.size()));

    model_.TakeSettingsFile(data);
    if (model_.Settings()[Setting::LFocus]) {
        editor_->Check1->setChecked(true);
        editor_->Command3->setEnabled(false);
    }
    for (int c = 0; c < kListColumns; ++c) {
        if (const auto &width = data.ColumnWidths[static_cast<std::size_t>(c)])
            list_->SetColumnWidthTwips(c, std::clamp(*width, 0.0, kFarTwips));
    }

    placementTwips_ = data.Placement;
    std::array<int, 4> px = PlacementPx(*this);
    for (std::size_t i = 0; i < px.size(); ++i) {
        if (placementTwips_[i])
            px[i] = ShownPx(*placementTwips_[i]);
    }
    if (std::any_of(placementTwips_.begin(), placementTwips_.end(), [](const auto &v) { return v.has_value(); }))
        setGeometry(px[0], px[1], px[2], px[3]);
}

void Form1::WriteSettingsFile() {
    SettingsFileData data = model_.SettingsFileContents();
    for (int c = 0; c < kListColumns; ++c)
        data.ColumnWidths[static_cast<std::size_t>(c)] = list_->ColumnWidthTwips(c);
    // A place or size that has not moved since it was read is written as it was read.
    const std::array<int, 4> px = PlacementPx(*this);
    for (std::size_t i = 0; i < px.size(); ++i) {
        const auto &read = placementTwips_[i];
        data.Placement[i] = read && ShownPx(*read) == px[i] ? *read : PxToTwips(px[i]);
    }

    // A file that cannot be written is skipped without a message; the old one stays whole.
    const std::string text = WriteSettingsText(data);
    const QString path = SettingsPath(ProgramFolder());
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return;
    if (file.write(text.data(), static_cast<qint64>(text.size())) != static_cast<qint64>(text.size())) {
        file.cancelWriting();
        return;
    }
    file.commit();
}

void Form1::ShowOptions() {
    // A closed window waits hidden for its deletion; opening again makes a new one.
    if (!form3_ || !form3_->isVisible())
        form3_ = new Form3(model_);
    ShowOrFocusWindow(form3_);
}
