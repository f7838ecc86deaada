#include "Form1.h"

#include "Form5.h"
#include "TemplatePanel.h"
#include "WindowUtil.h"

#include <QFrame>
#include <QPushButton>

void Form1::ClearExperiment() {
    model_.ClearExperiment();
    template_->Picture2->setFocus();
}

void Form1::SimulateExpSession() {
    ClearExperiment();
    OpenExperimentWindow(true);
}

void Form1::ExperimentOnSample() {
    model_.StartSampleExperiment();
    template_->Picture2->setFocus();
    OpenExperimentWindow(false);
}

void Form1::OpenExperimentWindow(bool canReset) {
    if (!form5_ || !form5_->isVisible())
        form5_ = new Form5(model_, hub_);
    form5_->Command3->setEnabled(canReset);
    ShowOrFocusWindow(form5_);
}
