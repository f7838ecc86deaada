#include "Form2.h"

#include "AppModel.h"
#include "EntryBox.h"
#include "Numeric.h"
#include "ReadNumber.h"
#include "SampleBox.h"
#include "UiText.h"

#include <QComboBox>
#include <QMessageBox>
#include <QRadioButton>

using namespace quorvel;

namespace {

// The quality entries name the words they abbreviate, so each is stored as that word's
// index: VHQ Very High, HQ High, AAQ Above Average, AQ Average, BAQ Below Average, LQ and
// VLQ Poor, "?" Unknown.
constexpr std::array<int, 8> kQualityOfEntry{5, 4, 3, 2, 1, 0, 0, 6};

std::optional<int16_t> ReadBox(const QLineEdit *box) {
    return ToInt16(ReadNumber(FromQt(box->text())));
}

} // namespace

void Form2::Command4_Click() {
    // A full library or a value that does not fit its 16-bit field stores nothing, and the
    // user is told why rather than finding a sample missing or changed.
    if (model_.Library().IsFull()) {
        QMessageBox::warning(
            this, windowTitle(),
            QStringLiteral("The library is full: it holds %1 samples. Nothing was saved.").arg(kMaxSamples));
        return;
    }
    DnaRecord record;
    for (int i = 0; i < 12; ++i) {
        if (i == 10)
            continue;
        SampleBox *box = Text1[static_cast<std::size_t>(i)];
        const std::optional<int16_t> value = ReadBox(box);
        if (!value) {
            QMessageBox::warning(
                this, windowTitle(),
                QStringLiteral("%1 is out of range: values must lie between -32768 and 32767. Nothing was saved.")
                    .arg(box->accessibleName()));
            box->setFocus();
            return;
        }
        if (i < kAttributeCount)
            record.Attributes[static_cast<std::size_t>(i)] = *value;
        else
            record.Level = *value;
    }
    record.Name = FromQt(Text1[10]->text());
    record.Planet = static_cast<int16_t>(std::max(ChosenEntry(Combo2), 0));
    const int quality = ChosenEntry(Combo1);
    record.Quality = quality < 0 ? 0.0f : static_cast<float>(kQualityOfEntry[static_cast<std::size_t>(quality)]);
    record.Origin = Option1[0]->isChecked() ? 0 : 1;

    model_.AddDnaRecord(record);
    ResetBoxes();
}

void Form2::ResetBoxes() {
    for (SampleBox *box : Text1)
        box->clear();
    Combo1->setCurrentIndex(Combo1->count() - 1);
    Combo2->setCurrentIndex(0);
    Option1[0]->setChecked(true);
}

void Form2::EvaluateTypedSample() {
    std::array<double, kAttributeCount> typed{};
    for (std::size_t i = 0; i < typed.size(); ++i)
        typed[i] = ReadNumber(FromQt(Text1[i]->text()));
    ShowStatTexts(Label23, model_.EvaluateTypedSample(typed));
}
