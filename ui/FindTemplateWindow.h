#pragma once

#include "Finder.h"

#include <QWidget>

#include <memory>
#include <vector>

class FinderJob;
class ModelHub;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QTreeWidget;

namespace quorvel {
class AppModel;
}

// The template finder: the best templates of the library for a goal, searched on a thread of
// their own while every window stays usable; "Use" puts one into the main window's template.
class FindTemplateWindow final : public QWidget {
    Q_OBJECT
public:
    FindTemplateWindow(quorvel::AppModel &model, ModelHub &hub, QWidget *parent = nullptr);

protected:
    // A running search is stopped before the window goes.
    void closeEvent(QCloseEvent *event) override;

private:
    QLayout *BuildSettings();
    QLayout *BuildSearchRow();
    QLayout *BuildBottomRow();
    quorvel::FinderSettings ChosenSettings();

    void Search();
    void ShowResult(const quorvel::FinderResult &result, double seconds);
    void UseTemplate();
    void LibraryChanged();
    void UpdateControls();
    void ShowStatus();

    quorvel::AppModel &model_;
    FinderJob *job_ = nullptr;

    QComboBox *goal_ = nullptr;
    QCheckBox *maxLevelEnabled_ = nullptr;
    QDoubleSpinBox *maxLevel_ = nullptr;
    QComboBox *equation_ = nullptr;
    QCheckBox *experimented_ = nullptr;
    QCheckBox *reuse_ = nullptr;
    QCheckBox *keepFilled_ = nullptr;
    QSpinBox *topK_ = nullptr;
    QPushButton *search_ = nullptr;
    QPushButton *cancel_ = nullptr;
    QProgressBar *progress_ = nullptr;
    QTreeWidget *results_ = nullptr;
    QPushButton *use_ = nullptr;
    QLabel *status_ = nullptr;

    // The last search: the library as it saw it, its settings and what it found.
    std::shared_ptr<const quorvel::DnaLibrary> searched_;
    quorvel::FinderSettings searchedSettings_;
    std::vector<quorvel::FoundTemplate> found_;
    // The library no longer holds the samples the last search saw.
    bool stale_ = false;
    QString summary_;
    QString keepNote_;
};
