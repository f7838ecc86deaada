#include "Form1.h"

#include "Form5.h"
#include "TemplatePanel.h"
#include "WindowUtil.h"

#include <QFrame>
#include <QPushButton>

#include <algorithm>

void Form1::ClearExperiment() {
    // Marking a category experimented and toggling it back gives it its evaluated values again.
    for (int c = 0; c < quorvel::kCategoryCount; ++c) {
        state_.Template.Experimented[static_cast<std::size_t>(c)] = true;
        template_->ToggleExperiment(c);
    }
    template_->Picture2->setFocus();
}

void Form1::SimulateExpSession() {
    ClearExperiment();
    if (!form5_ || !form5_->isVisible())
        form5_ = new Form5(*this);
    form5_->Command3->setEnabled(true);
    ShowOrFocusWindow(form5_);
}

void Form1::ExperimentOnSample() {
    ClearExperiment();
    quorvel::DnaTemplate &t = state_.Template;
    t.Caps.fill(1000);
    const quorvel::AttributeArray &sample = state_.Library.Selected().Attributes;
    std::copy(sample.begin(), sample.end(), t.Current.begin());
    if (!form5_ || !form5_->isVisible())
        form5_ = new Form5(*this);
    form5_->Command3->setEnabled(false);
    ShowOrFocusWindow(form5_);
}
