#include "Form1.h"

#include "DnaListPanel.h"
#include "DnaListView.h"
#include "EditorPanel.h"
#include "FindTemplateWindow.h"
#include "Fonts.h"
#include "Form2.h"
#include "Form3.h"
#include "Form4.h"
#include "Form5.h"
#include "PredictionPanel.h"
#include "Resources.h"
#include "StoredPetsWindow.h"
#include "TemplatePanel.h"
#include "Twips.h"
#include "UiText.h"
#include "Version.h"
#include "Widgets.h"
#include "WindowUtil.h"

#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

namespace {

// The inner area at first start, in twips.
constexpr int kStartWidth = 14595;
constexpr int kStartHeight = 9750;

// The platform's keys for a standard command; where it has none (Save As under plain X11 and
// Windows, Quit under Windows) the keys most programs use instead.
QList<QKeySequence> StandardKeys(QKeySequence::StandardKey command, const QKeySequence &usual) {
    QList<QKeySequence> keys = QKeySequence::keyBindings(command);
    if (keys.isEmpty())
        keys.append(usual);
    return keys;
}

} // namespace

Form1::Form1(QWidget *parent) : QMainWindow(parent) {
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(QStringLiteral("Quorvel v%1.%2").arg(version::kMajor).arg(version::kMinor));
    setWindowIcon(ProgramIcon());
    FillBackground(this, kWindowColour);

    central_ = new QWidget(this);
    central_->setObjectName(QStringLiteral("central"));
    setCentralWidget(central_);
    StatusBar1 = new QStatusBar(this);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    setStatusBar(StatusBar1);
    // The layout never goes negative: the left column and a strip of the list always fit.
    setMinimumSize(TwipsToPx(9600), TwipsToPx(7200));
    // The panels are laid out in fixed places, in the platform's small font.
    central_->setFont(ReadableFont());

    prediction_ = new PredictionPanel(model_, hub_, central_);
    template_ = new TemplatePanel(model_, hub_, central_);
    list_ = new DnaListPanel(model_, hub_, central_);
    editor_ = new EditorPanel(model_, hub_, central_);
    BuildToolbar();
    FitButtonCaptions(central_);

    connect(&hub_, &ModelHub::foldChanged, this, [this](quorvel::FoldPart part) {
        if (part == quorvel::FoldPart::Editor)
            LayoutMainWindow();
    });
    connect(&hub_, &ModelHub::secondaryWindowOpened, this, &Form1::SecondaryWindowOpened);
    connect(&hub_, &ModelHub::secondaryWindowClosed, this, &Form1::SecondaryWindowClosed);
    connect(template_->Command6, &QPushButton::clicked, this, &Form1::ClearExperiment);
    connect(template_->Command7, &QPushButton::clicked, this, &Form1::SimulateExpSession);
    connect(prediction_->Command8, &QPushButton::clicked, this, &Form1::ExperimentOnSample);
    connect(list_, &DnaListPanel::rowReleased, editor_, &EditorPanel::ShowRecordInEditor);

    resize(TwipsToPx(kStartWidth), TwipsToPx(kStartHeight));
    StartMainWindow();
}

Form1::~Form1() {
    ExitApp();
}

QString Form1::ProgramFolder() const {
    return QCoreApplication::applicationDirPath();
}

void Form1::StartMainWindow() {
    ReadSettingsFile();
    ReadStoredPetsFile();
    connect(&hub_, &ModelHub::storedPetsChanged, this, &Form1::WriteStoredPetsFile);
    if (model_.Settings()[quorvel::Setting::Load])
        LoadDnaFile(quorvel::LoadMode::Append, true);
    ShowRecoveryState();
}

void Form1::BuildToolbar() {
    Toolbar1 = new QToolBar(central_);
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setIconSize(QSize(TwipsToPx(240), TwipsToPx(240)));
    Toolbar1->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    Toolbar1->setMovable(false);
    Toolbar1->setFloatable(false);

    // A command's button, or a plain one ("Filter", "Filter On") when it has no slot.
    const auto addButton = [this](const QString &caption, const QString &icon, void (Form1::*slot)() = nullptr) {
        auto *action = new QAction(ToolbarIcon(icon), caption, Toolbar1);
        action->setToolTip(caption);
        Toolbar1->addAction(action);
        if (slot)
            connect(action, &QAction::triggered, this, slot);
        return action;
    };
    const auto addEntry = [this](QMenu *menu, const QString &caption, void (Form1::*slot)()) {
        QAction *entry = menu->addAction(caption);
        connect(entry, &QAction::triggered, this, slot);
        return entry;
    };
    const auto addMenu = [this](QAction *button) {
        auto *menu = new QMenu(Toolbar1);
        button->setMenu(menu);
        if (auto *tool = qobject_cast<QToolButton *>(Toolbar1->widgetForAction(button)))
            tool->setPopupMode(QToolButton::MenuButtonPopup);
        return menu;
    };

    QAction *load = addButton(QStringLiteral("Load"), QStringLiteral("load"), &Form1::LoadDna);
    QMenu *loadMenu = addMenu(load);
    addEntry(loadMenu, QStringLiteral("Load DNA"), &Form1::LoadDna)->setData(QStringLiteral("t_dna"));
    addEntry(loadMenu, QStringLiteral("Append DNA"), &Form1::AppendDna)->setData(QStringLiteral("t_app"));
    recover_ = addEntry(loadMenu, QStringLiteral("Recover Unsaved Samples"), &Form1::RecoverUnsavedSamples);
    connect(loadMenu, &QMenu::aboutToShow, this, &Form1::ShowRecoveryState);
    load->setShortcut(QKeySequence::Open);
    QAction *save = addButton(QStringLiteral("Save"), QStringLiteral("save"), &Form1::Save);
    QMenu *saveMenu = addMenu(save);
    QAction *saveAs = addEntry(saveMenu, QStringLiteral("Save As"), &Form1::SaveAs);
    addEntry(saveMenu, QStringLiteral("Save With Data"), &Form1::SaveWithData);
    addEntry(saveMenu, QStringLiteral("WYSIWYG"), &Form1::SaveAsShown);
    save->setShortcut(QKeySequence::Save);
    saveAs->setShortcuts(StandardKeys(QKeySequence::SaveAs, QKeySequence(QStringLiteral("Ctrl+Shift+S"))));
    addButton(QStringLiteral("Clear"), QStringLiteral("clear"), &Form1::ClearTemplate);
    addButton(QStringLiteral("Filter"), QStringLiteral("filter"));
    addButton(QStringLiteral("Filter On"), QStringLiteral("filteron"))->setCheckable(true);
    addButton(QStringLiteral("No Sort"), QStringLiteral("nosort"), &Form1::NoSort);
    addButton(QStringLiteral("Add DNA"), QStringLiteral("adddna"), &Form1::ShowAddDna);
    addButton(QStringLiteral("Find Template"), QStringLiteral("findtemplate"), &Form1::ShowFindTemplate);
    addButton(QStringLiteral("Stored Pets"), QStringLiteral("storedpets"), &Form1::ShowStoredPets);
    auto *views = new QActionGroup(Toolbar1);
    QAction *dnaView = addButton(QStringLiteral("DNA View"), QStringLiteral("dnaview"), &Form1::ShowDnaView);
    QAction *petView = addButton(QStringLiteral("Pet View"), QStringLiteral("petview"), &Form1::ShowPetView);
    for (QAction *view : {dnaView, petView}) {
        view->setCheckable(true);
        views->addAction(view);
    }
    dnaView->setChecked(true);
    addButton(QStringLiteral("Options"), QStringLiteral("options"), &Form1::ShowOptions);
    addButton(QStringLiteral("About"), QStringLiteral("about"), &Form1::ShowAbout)
        ->setShortcut(QKeySequence::HelpContents);
    // Shortcuts work from anywhere in the window, also while the toolbar has no focus.
    for (QAction *action : Toolbar1->actions())
        addAction(action);
    addAction(saveAs);
    auto *quit = new QAction(this);
    quit->setShortcuts(StandardKeys(QKeySequence::Quit, QKeySequence(QStringLiteral("Ctrl+Q"))));
    connect(quit, &QAction::triggered, this, &QWidget::close);
    addAction(quit);
}

void Form1::LoadDna() {
    LoadDnaFile(quorvel::LoadMode::Replace, false);
}

void Form1::AppendDna() {
    LoadDnaFile(quorvel::LoadMode::Append, false);
}

void Form1::Save() {
    SaveDnaFile(quorvel::SaveMode::Save);
}

void Form1::SaveAs() {
    SaveDnaFile(quorvel::SaveMode::SaveAs);
}

void Form1::SaveWithData() {
    SaveDnaFile(quorvel::SaveMode::SaveWithData);
}

void Form1::SaveAsShown() {
    SaveDnaFile(quorvel::SaveMode::AsShown);
}

void Form1::ClearTemplate() {
    model_.ClearTemplate(quorvel::ClearScope::WholeTemplate);
}

void Form1::NoSort() {
    model_.NoSort();
}

void Form1::ShowDnaView() {
    list_->ShowDnaView();
}

void Form1::ShowPetView() {
    list_->ShowPetView();
}

void Form1::ShowFileCaption() {
    setWindowTitle(QStringLiteral("Quorvel v%1.%2 [%3]")
                       .arg(version::kMajor)
                       .arg(version::kMinor)
                       .arg(ToQt(model_.LastDnaFile())));
}

void Form1::resizeEvent(QResizeEvent *event) {
    QMainWindow::resizeEvent(event);
    Toolbar1->setGeometry(0, 0, width(), Toolbar1->sizeHint().height());
    LayoutMainWindow();
}

void Form1::LayoutMainWindow() {
    const int w = PxToTwips(width());
    const int h = PxToTwips(height());
    const bool folded = model_.Folded(quorvel::FoldPart::Editor);
    const int listHeight = h - (folded ? 1590 : 2900);
    const int editorTop = h - (folded ? 520 : 1830);
    if (w - 4300 < 0 || listHeight < 0 || editorTop < 0)
        return;
    PlaceTwips(list_->ListView1, 4200, 960, w - 4300, listHeight);
    editor_->Picture4->move(TwipsToPx(4200), TwipsToPx(editorTop));
}

void Form1::closeEvent(QCloseEvent *event) {
    WriteSettingsFile();
    WriteRecoveryFile();
    ExitApp();
    QMainWindow::closeEvent(event);
}

void Form1::ExitApp() {
    // Each window runs its own closing steps; one that is already gone is skipped.
    const std::array<QWidget *, 6> windows{form2_.data(), form3_.data(), form4_.data(), form5_.data(),
                                           storedPets_.data(), finder_.data()};
    for (QWidget *window : windows) {
        if (window)
            window->close();
    }
}

void Form1::SecondaryWindowOpened() {
    if (model_.Settings()[quorvel::Setting::Min])
        showMinimized();
}

void Form1::SecondaryWindowClosed() {
    list_->ListView1->setFocus();
    // Normal again whatever the state was; a main window that is itself closing is not shown again.
    setWindowState(Qt::WindowNoState);
    // The list has the focus at once, not only when the window system confirms the activation.
    if (isVisible()) {
        activateWindow();
        QApplication::setActiveWindow(this);
    }
}

void Form1::ShowAbout() {
    // A closed window waits for its deletion; a new one takes its place at once.
    if (!form4_ || !form4_->isVisible())
        form4_ = new Form4();
    ShowOrFocusWindow(form4_);
}
