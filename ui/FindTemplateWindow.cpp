#include "FindTemplateWindow.h"

#include "AppModel.h"
#include "Captions.h"
#include "FinderJob.h"
#include "FinderResults.h"
#include "FinderSupport.h"
#include "ModelHub.h"
#include "Twips.h"
#include "UiText.h"
#include "Widgets.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int kProgressSteps = 1000;

template <typename T> T *Named(T *widget, const char *name) {
    widget->setObjectName(QLatin1String(name));
    return widget;
}

QString SearchCaption(bool again) {
    return again ? QStringLiteral("Search again") : QStringLiteral("Search");
}

} // namespace

FindTemplateWindow::FindTemplateWindow(quorvel::AppModel &model, ModelHub &hub, QWidget *parent)
    : QWidget(parent, Qt::Window), model_(model), job_(new FinderJob(this)) {
    // The window follows neither the minimise nor the always-on-top option: the template it
    // fills is in the main window, which stays in view beside it.
    SetUpSecondaryWindow(this, QStringLiteral("FindTemplateWindow"), QStringLiteral("Find Template"));
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(BuildSettings());
    layout->addLayout(BuildSearchRow());
    results_ = Named(new QTreeWidget(this), "finderResults");
    SetUpFoundTemplatesList(results_);
    layout->addWidget(results_, 1);
    layout->addLayout(BuildBottomRow());
    resize(TwipsToPx(14400), TwipsToPx(7200)); // 960 x 480 px at 100 %

    connect(job_, &FinderJob::progressed, this,
            [this](double fraction) { progress_->setValue(static_cast<int>(fraction * kProgressSteps)); });
    connect(job_, &FinderJob::finished, this, &FindTemplateWindow::ShowResult);
    connect(results_, &QTreeWidget::currentItemChanged, this, &FindTemplateWindow::UpdateControls);
    connect(results_, &QTreeWidget::itemDoubleClicked, this, &FindTemplateWindow::UseTemplate);
    connect(&hub, &ModelHub::rowsRebuilt, this, &FindTemplateWindow::LibraryChanged);
    connect(&hub, &ModelHub::rowsCleared, this, &FindTemplateWindow::LibraryChanged);
    connect(&hub, &ModelHub::rowsAppended, this, &FindTemplateWindow::LibraryChanged);
    connect(&hub, &ModelHub::cellWritten, this, &FindTemplateWindow::LibraryChanged);
    UpdateControls();
}

QLayout *FindTemplateWindow::BuildSettings() {
    auto *grid = new QGridLayout;
    goal_ = Named(new QComboBox(this), "finderGoal");
    for (int goal = 0; goal < quorvel::kFinderGoalCount; ++goal)
        goal_->addItem(ToQt(quorvel::FinderGoalName(static_cast<quorvel::FinderGoal>(goal))));
    grid->addWidget(new QLabel(QStringLiteral("Goal:"), this), 0, 0);
    grid->addWidget(goal_, 0, 1);

    equation_ = Named(new QComboBox(this), "finderEquation");
    equation_->addItems({QStringLiteral("Old"), QStringLiteral("New 1"), QStringLiteral("New 2")});
    equation_->setCurrentIndex(static_cast<int>(quorvel::PresetEquation(model_.Settings())));
    grid->addWidget(new QLabel(QStringLiteral("Equation:"), this), 0, 2);
    grid->addWidget(equation_, 0, 3);

    maxLevelEnabled_ = Named(new QCheckBox(QStringLiteral("Level at most:"), this), "finderMaxLevelEnabled");
    maxLevel_ = Named(new QDoubleSpinBox(this), "finderMaxLevel");
    maxLevel_->setAccessibleName(QStringLiteral("Level limit"));
    maxLevel_->setDecimals(2);
    maxLevel_->setRange(0.0, 999.99);
    maxLevel_->setValue(40.0);
    maxLevel_->setEnabled(false);
    connect(maxLevelEnabled_, &QCheckBox::toggled, maxLevel_, &QWidget::setEnabled);
    grid->addWidget(maxLevelEnabled_, 1, 0);
    grid->addWidget(maxLevel_, 1, 1);

    topK_ = Named(new QSpinBox(this), "finderTopK");
    topK_->setAccessibleName(QStringLiteral("Templates to list"));
    topK_->setRange(1, 100);
    topK_->setValue(10);
    grid->addWidget(new QLabel(QStringLiteral("Templates:"), this), 1, 2);
    grid->addWidget(topK_, 1, 3);

    experimented_ =
        Named(new QCheckBox(QStringLiteral("Experimented (every category at its caps)"), this), "finderExperimented");
    reuse_ = Named(new QCheckBox(QStringLiteral("A sample may fill several categories"), this), "finderReuse");
    keepFilled_ = Named(new QCheckBox(QStringLiteral("Keep the categories already filled"), this), "finderKeepFilled");
    grid->addWidget(experimented_, 2, 0, 1, 2);
    grid->addWidget(reuse_, 2, 2, 1, 2);
    grid->addWidget(keepFilled_, 3, 0, 1, 2);
    grid->setColumnStretch(4, 1);
    return grid;
}

QLayout *FindTemplateWindow::BuildSearchRow() {
    auto *row = new QHBoxLayout;
    search_ = Named(new QPushButton(SearchCaption(false), this), "finderSearch");
    search_->setDefault(true);
    cancel_ = Named(new QPushButton(QStringLiteral("Cancel"), this), "finderCancel");
    progress_ = Named(new QProgressBar(this), "finderProgress");
    progress_->setRange(0, kProgressSteps);
    progress_->setValue(0);
    connect(search_, &QPushButton::clicked, this, &FindTemplateWindow::Search);
    connect(cancel_, &QPushButton::clicked, job_, &FinderJob::Cancel);
    row->addWidget(search_);
    row->addWidget(cancel_);
    row->addWidget(progress_, 1);
    return row;
}

QLayout *FindTemplateWindow::BuildBottomRow() {
    auto *row = new QHBoxLayout;
    status_ = Named(new QLabel(this), "finderStatus");
    status_->setWordWrap(true);
    use_ = Named(new QPushButton(QStringLiteral("Use"), this), "finderUse");
    use_->setToolTip(QStringLiteral("Put the chosen template into the five categories"));
    connect(use_, &QPushButton::clicked, this, &FindTemplateWindow::UseTemplate);
    row->addWidget(status_, 1);
    row->addWidget(use_);
    return row;
}

quorvel::FinderSettings FindTemplateWindow::ChosenSettings() {
    quorvel::FinderSettings settings;
    settings.Goal = static_cast<quorvel::FinderGoal>(goal_->currentIndex());
    if (maxLevelEnabled_->isChecked())
        settings.MaxLevel = maxLevel_->value();
    settings.Equation = static_cast<quorvel::LevelEquation>(equation_->currentIndex());
    settings.Experimented = experimented_->isChecked();
    settings.Reuse = reuse_->isChecked();
    settings.TopK = topK_->value();
    keepNote_.clear();
    if (keepFilled_->isChecked()) {
        const quorvel::FilledSlots filled = quorvel::FilledCategorySlots(model_.Library(), model_.Template());
        settings.FixedSlots = filled.Kept;
        // A sample edited or gone since it was put in the template cannot be kept.
        QStringList missing;
        for (const quorvel::Category category : filled.Missing)
            missing << CategoryName(category);
        if (!missing.isEmpty())
            keepNote_ = QStringLiteral("Not kept, their samples are no longer in the library: %1.")
                            .arg(missing.join(QStringLiteral(", ")));
    }
    return settings;
}

void FindTemplateWindow::Search() {
    if (job_->Running())
        return;
    const quorvel::FinderSettings settings = ChosenSettings();
    auto library = std::make_shared<const quorvel::DnaLibrary>(model_.Library());
    if (const std::optional<std::string> error = quorvel::FinderSettingsError(*library, settings)) {
        summary_ = ToQt(*error);
        ShowStatus();
        return;
    }
    results_->clear();
    found_.clear();
    searched_ = library;
    searchedSettings_ = settings;
    stale_ = false;
    progress_->setValue(0);
    job_->Start(std::move(library), settings);
    summary_ = QStringLiteral("Searching...");
    UpdateControls();
    ShowStatus();
}

void FindTemplateWindow::ShowResult(const quorvel::FinderResult &result, double seconds) {
    found_ = result.Templates;
    ShowFoundTemplates(results_, *searched_, found_, searchedSettings_, model_.Equations());
    if (!result.Cancelled)
        progress_->setValue(kProgressSteps);
    const QLocale locale;
    const QString evaluated = locale.toString(static_cast<qulonglong>(result.Evaluated));
    if (result.Cancelled) {
        summary_ = QStringLiteral("Cancelled: the best of the %1 templates evaluated before the cancel, not "
                                  "necessarily the best of the library.")
                       .arg(evaluated);
    } else if (found_.empty()) {
        summary_ = QStringLiteral("No template meets the level limit.");
    } else {
        summary_ = QStringLiteral("The best %1, best first: %2 templates evaluated in %3 s.")
                       .arg(found_.size())
                       .arg(evaluated, locale.toString(seconds, 'f', 2));
    }
    // The library may have changed while the search ran.
    stale_ = !quorvel::SameSamples(*searched_, model_.Library());
    UpdateControls();
    ShowStatus();
}

void FindTemplateWindow::UseTemplate() {
    const std::optional<std::size_t> index = FoundTemplateIndex(results_->currentItem());
    if (job_->Running() || !index || *index >= found_.size())
        return;
    const quorvel::FoundTemplate &chosen = found_[*index];
    // Results of a changed library are still good while their own five slots hold the samples found.
    const quorvel::DnaLibrary &library = model_.Library();
    for (const int slot : chosen.Slots) {
        const auto at = static_cast<std::size_t>(slot);
        if (slot > library.Count || !quorvel::SameSample(library.Records[at], searched_->Records[at])) {
            status_->setText(QStringLiteral("This template's samples are no longer in the library as they were "
                                            "found. Press \"Search again\"."));
            return;
        }
    }
    for (const quorvel::Category category : quorvel::kCategories)
        model_.PutSampleInTemplate(category, chosen.Slots[quorvel::Index(category)]);
    // Templates found experimented are shown experimented, as they were ranked.
    if (searchedSettings_.Experimented) {
        for (const quorvel::Category category : quorvel::kCategories)
            model_.ToggleExperiment(category);
    }
}

void FindTemplateWindow::LibraryChanged() {
    if (!searched_ || job_->Running())
        return;
    const bool stale = !quorvel::SameSamples(*searched_, model_.Library());
    if (stale == stale_)
        return;
    stale_ = stale;
    UpdateControls();
    ShowStatus();
}

void FindTemplateWindow::UpdateControls() {
    const bool running = job_->Running();
    search_->setEnabled(!running);
    search_->setText(SearchCaption(stale_));
    cancel_->setEnabled(running);
    for (QWidget *setting : std::initializer_list<QWidget *>{goal_, maxLevelEnabled_, equation_, experimented_, reuse_,
                                                             keepFilled_, topK_})
        setting->setEnabled(!running);
    maxLevel_->setEnabled(!running && maxLevelEnabled_->isChecked());
    use_->setEnabled(!running && FoundTemplateIndex(results_->currentItem()).has_value());
}

void FindTemplateWindow::ShowStatus() {
    QStringList parts{summary_};
    if (!keepNote_.isEmpty())
        parts << keepNote_;
    if (stale_)
        parts << QStringLiteral("The library has changed since this search: press \"Search again\".");
    status_->setText(parts.join(QLatin1Char(' ')));
}

void FindTemplateWindow::closeEvent(QCloseEvent *event) {
    job_->Stop();
    QWidget::closeEvent(event);
}
