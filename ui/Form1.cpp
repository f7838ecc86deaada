#include "Form1.h"

#include "DnaListPanel.h"
#include "DnaListView.h"
#include "EditorPanel.h"
#include "Fonts.h"
#include "Form2.h"
#include "Form3.h"
#include "Form4.h"
#include "Form5.h"
#include "PredictionPanel.h"
#include "TemplatePanel.h"
#include "Twips.h"
#include "Widgets.h"
#include "WindowUtil.h"

#include <QActionGroup>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr int kVersionMajor = 0;
constexpr int kVersionMinor = 55;

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

// The icons are compiled into this library; a static library needs its resources named once.
static void InitQuorvelResources() {
    Q_INIT_RESOURCE(quorvel);
}

Form1::Form1(QWidget *parent) : QMainWindow(parent) {
    InitQuorvelResources();
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(QStringLiteral("Quorvel v%1.%2").arg(kVersionMajor).arg(kVersionMinor));
    setWindowIcon(QIcon(QStringLiteral(":/icons/quorvel.svg")));
    FillBackground(this, kWindowColour);

    central_ = new QWidget(this);
    central_->setObjectName(QStringLiteral("central"));
    setCentralWidget(central_);
    StatusBar1 = new QStatusBar(this);
    StatusBar1->setObjectName(QStringLiteral("StatusBar1"));
    setStatusBar(StatusBar1);
    // The layout never goes negative: the left column and a strip of the list always fit.
    setMinimumSize(640, 480);
    // The panels are laid out in fixed places, in the platform's small font.
    central_->setFont(ReadableFont());

    prediction_ = new PredictionPanel(state_, central_);
    template_ = new TemplatePanel(state_, *prediction_, central_);
    list_ = new DnaListPanel(state_, central_);
    editor_ = new EditorPanel(state_, *list_, central_);
    BuildToolbar();
    FitButtonCaptions(central_);

    for (int i = 0; i < 5; ++i)
        connect(template_->Label2[static_cast<std::size_t>(i)], &ClickLabel::clicked, this,
                [this, i] { ToggleFold(i); });
    connect(template_->Label1, &ClickLabel::clicked, this, [this] { ToggleFold(5); });
    connect(prediction_->Label4, &ClickLabel::clicked, this, [this] { ToggleFold(6); });
    connect(editor_->Label41, &ClickLabel::clicked, this, [this] { ToggleFold(7); });
    connect(template_->Command5, &QPushButton::clicked, this, &Form1::FoldAllLists);
    connect(template_->Command6, &QPushButton::clicked, this, &Form1::ClearExperiment);
    connect(template_->Command7, &QPushButton::clicked, this, &Form1::SimulateExpSession);
    connect(prediction_->Command8, &QPushButton::clicked, this, &Form1::ExperimentOnSample);
    connect(list_, &DnaListPanel::rowReleased, editor_, &EditorPanel::ShowRecordInEditor);
    connect(list_, &DnaListPanel::rowDoubleClicked, template_, &TemplatePanel::PutDnaInFirstFreeSlot);
    connect(list_, &DnaListPanel::sendToCategory, template_, &TemplatePanel::PutDnaInTemplate);

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
    state_.FoldState = {true, true, true, true, true, false, false, false};
    ReadSettingsFile();
    if (state_.Settings[quorvel::Load])
        LoadDnaFile(false, true);
}

void Form1::BuildToolbar() {
    Toolbar1 = new QToolBar(central_);
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setIconSize(QSize(16, 16));
    Toolbar1->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    Toolbar1->setMovable(false);
    Toolbar1->setFloatable(false);

    const auto addButton = [this](const QString &caption, const QString &icon) {
        auto *action = new QAction(QIcon(QStringLiteral(":/icons/%1.svg").arg(icon)), caption, Toolbar1);
        action->setToolTip(caption);
        Toolbar1->addAction(action);
        connect(action, &QAction::triggered, this, [this, caption] { ToolbarAction(caption); });
        return action;
    };
    const auto addMenu = [this](QAction *button, const QStringList &entries, const QStringList &keys) {
        auto *menu = new QMenu(Toolbar1);
        for (int i = 0; i < entries.size(); ++i) {
            QAction *entry = menu->addAction(entries[i]);
            if (i < keys.size())
                entry->setData(keys[i]);
            const QString caption = entries[i];
            connect(entry, &QAction::triggered, this, [this, caption] { ToolbarAction(caption); });
        }
        button->setMenu(menu);
        if (auto *tool = qobject_cast<QToolButton *>(Toolbar1->widgetForAction(button)))
            tool->setPopupMode(QToolButton::MenuButtonPopup);
    };

    QAction *load = addButton(QStringLiteral("Load"), QStringLiteral("load"));
    addMenu(load, {QStringLiteral("Load DNA"), QStringLiteral("Append DNA")},
            {QStringLiteral("t_dna"), QStringLiteral("t_app")});
    load->setShortcut(QKeySequence::Open);
    QAction *save = addButton(QStringLiteral("Save"), QStringLiteral("save"));
    addMenu(save, {QStringLiteral("Save As"), QStringLiteral("Save With Data"), QStringLiteral("WYSIWYG")}, {});
    save->setShortcut(QKeySequence::Save);
    QAction *saveAs = save->menu()->actions().constFirst();
    saveAs->setShortcuts(StandardKeys(QKeySequence::SaveAs, QKeySequence(QStringLiteral("Ctrl+Shift+S"))));
    addButton(QStringLiteral("Clear"), QStringLiteral("clear"));
    addButton(QStringLiteral("Filter"), QStringLiteral("filter"));
    addButton(QStringLiteral("Filter On"), QStringLiteral("filteron"))->setCheckable(true);
    addButton(QStringLiteral("No Sort"), QStringLiteral("nosort"));
    addButton(QStringLiteral("Add DNA"), QStringLiteral("adddna"));
    auto *views = new QActionGroup(Toolbar1);
    QAction *dnaView = addButton(QStringLiteral("DNA View"), QStringLiteral("dnaview"));
    QAction *petView = addButton(QStringLiteral("Pet View"), QStringLiteral("petview"));
    for (QAction *view : {dnaView, petView}) {
        view->setCheckable(true);
        views->addAction(view);
    }
    dnaView->setChecked(true);
    addButton(QStringLiteral("Options"), QStringLiteral("options"));
    addButton(QStringLiteral("About"), QStringLiteral("about"))->setShortcut(QKeySequence::HelpContents);
    // Shortcuts work from anywhere in the window, also while the toolbar has no focus.
    for (QAction *action : Toolbar1->actions())
        addAction(action);
    addAction(saveAs);
    auto *quit = new QAction(this);
    quit->setShortcuts(StandardKeys(QKeySequence::Quit, QKeySequence(QStringLiteral("Ctrl+Q"))));
    connect(quit, &QAction::triggered, this, &QWidget::close);
    addAction(quit);
}

void Form1::ToolbarAction(const QString &caption) {
    if (caption == QLatin1String("Load") || caption == QLatin1String("Load DNA"))
        LoadDnaFile(true, false);
    else if (caption == QLatin1String("Append DNA"))
        LoadDnaFile(false, false);
    else if (caption == QLatin1String("Save"))
        SaveDnaFile(10);
    else if (caption == QLatin1String("Save As"))
        SaveDnaFile(0);
    else if (caption == QLatin1String("Save With Data"))
        SaveDnaFile(1);
    else if (caption == QLatin1String("WYSIWYG"))
        SaveDnaFile(2);
    else if (caption == QLatin1String("Clear"))
        template_->ClearTemplate(6);
    else if (caption == QLatin1String("No Sort")) {
        state_.ListSorted = false;
        list_->RebuildDnaList();
    } else if (caption == QLatin1String("Add DNA"))
        ShowAddDna();
    else if (caption == QLatin1String("DNA View"))
        list_->ShowDnaView();
    else if (caption == QLatin1String("Pet View"))
        list_->ShowPetView();
    else if (caption == QLatin1String("Options"))
        ShowOptions();
    else if (caption == QLatin1String("About"))
        ShowAbout();
}

void Form1::ShowFileCaption() {
    setWindowTitle(QStringLiteral("Quorvel v%1.%2 [%3]").arg(kVersionMajor).arg(kVersionMinor).arg(state_.LastDnaFile));
}

void Form1::resizeEvent(QResizeEvent *event) {
    QMainWindow::resizeEvent(event);
    Toolbar1->setGeometry(0, 0, width(), Toolbar1->sizeHint().height());
    LayoutMainWindow();
}

void Form1::LayoutMainWindow() {
    const int w = PxToTwips(width());
    const int h = PxToTwips(height());
    const bool folded = state_.FoldState[7];
    const int listHeight = h - (folded ? 1590 : 2900);
    const int editorTop = h - (folded ? 520 : 1830);
    if (w - 4300 < 0 || listHeight < 0 || editorTop < 0)
        return;
    PlaceTwips(list_->ListView1, 4200, 960, w - 4300, listHeight);
    editor_->Picture4->move(TwipsToPx(4200), TwipsToPx(editorTop));
}

void Form1::ToggleFold(int part) {
    const bool fold = !state_.FoldState[static_cast<std::size_t>(part)];
    if (part < 5) {
        template_->SetListFolded(part, fold);
    } else if (part == 5) {
        template_->SetValuesPanelFolded(fold);
        prediction_->MoveTo(120, fold ? 5400 : 6960);
    } else if (part == 6) {
        prediction_->SetFolded(fold);
    } else {
        editor_->SetFolded(fold);
    }
    state_.FoldState[static_cast<std::size_t>(part)] = fold;
    if (part == 7)
        LayoutMainWindow();
}

void Form1::FoldAllLists() {
    QPushButton *button = template_->Command5;
    const bool unfold = button->text().compare(QLatin1String("Unfold all"), Qt::CaseInsensitive) == 0;
    for (int i = 0; i < 5; ++i) {
        template_->SetListFolded(i, !unfold);
        state_.FoldState[static_cast<std::size_t>(i)] = !unfold;
    }
    button->setText(unfold ? QStringLiteral("Fold all") : QStringLiteral("Unfold all"));
    template_->Picture2->setFocus();
}

void Form1::closeEvent(QCloseEvent *event) {
    WriteSettingsFile();
    ExitApp();
    QMainWindow::closeEvent(event);
}

void Form1::ExitApp() {
    // Each window runs its own closing steps; one that is already gone is skipped.
    const std::array<QWidget *, 4> windows{form2_.data(), form3_.data(), form4_.data(), form5_.data()};
    for (QWidget *window : windows) {
        if (window)
            window->close();
    }
}

void Form1::ApplySecondaryWindowOptions(QWidget *window, QCheckBox *alwaysOnTop) {
    if (state_.Settings[quorvel::Min])
        showMinimized();
    if (state_.Settings[quorvel::OnTop]) {
        alwaysOnTop->setChecked(true);
        SetTopMost(window, true);
    }
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
