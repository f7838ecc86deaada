#include "ModelHub.h"

#include "WindowUtil.h"

#include <QCheckBox>

ModelHub::ModelHub(quorvel::AppModel &model, QObject *parent) : QObject(parent), model_(model) {
    model_.SetObserver(this);
}

ModelHub::~ModelHub() {
    model_.SetObserver(nullptr);
}

void ModelHub::ApplySecondaryWindowOptions(QWidget *window, QCheckBox *alwaysOnTop) {
    emit secondaryWindowOpened();
    if (model_.Settings()[quorvel::Setting::OnTop]) {
        alwaysOnTop->setChecked(true);
        SetTopMost(window, true);
    }
}
