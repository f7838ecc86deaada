#pragma once

#include "Form1.h"
#include "Template.h"
#include "TestSupport.h"

#include <QPointer>
#include <QSet>

#include <functional>
#include <memory>
#include <random>
#include <vector>

class Soak;

// What an action did to the main window's panels, as far as the checks need to know it.
enum Effect : unsigned {
    NoEffect = 0,
    Evaluated = 1 << 0,    // the template was evaluated and the pet predicted
    Cleared = 1 << 1,      // the whole template was emptied without an evaluation
    SampleShown = 1 << 2,  // the selected sample's pet was predicted
    Sorted = 1 << 3,       // a header click sorted the list
    SessionShown = 1 << 4, // the experimentation window drew its session and predicted
};

// One kind of user action, drawn by its weight among those whose `needs` are met: nothing, a
// window open ("Form2"), rows in the DNA list ("rows") or a control of the main window that no
// folded panel hides. It returns its Effect bits.
struct SoakAction {
    const char *name;
    int weight;
    const char *needs;
    std::function<unsigned(Soak &)> run;
};
extern const std::vector<SoakAction> kSoakActions;

// The names of a group of controls, separated by blanks: "Text1_0 Text1_1 ...".
QString Numbered(QAnyStringView stem, int count);

// The samples a reading must give from a slot on: exactly these (`foretold`), or at least
// these when a comma in a name moved the later fields of its line; `complete` whether the
// reading reaches the end of the file.
struct Samples {
    std::vector<quorvel::DnaRecord> records;
    bool complete = true;
    bool foretold = true;
};

// A long random use of the real windows: a seeded sequence of actions, each followed by the
// checks. The same seed gives the same actions.
class Soak {
public:
    explicit Soak(quint64 seed);
    ~Soak();
    // Runs `count` actions; an empty text, or what failed with the seed, the action's number
    // and the actions before it.
    QString Run(int count);

    // Random choices, all from the one seeded generator.
    int Below(int n) { return n <= 1 ? 0 : int(random_() % quint64(n)); }
    bool Chance(int percent) { return Below(100) < percent; }
    template <typename C> auto OneOf(const C &items) { return items[Below(int(std::size(items)))]; }
    QString NewPath(const char *stem) {
        return QStringLiteral("%1/%2-%3.txt").arg(folder_, QLatin1String(stem)).arg(++files_);
    }

    // The windows and controls, as a person finds and uses them.
    Form1 &Main() { return *form_; }
    quorvel::AppModel &Model() { return form_->Model(); }
    QString LastFile() { return QString::fromStdString(Model().LastDnaFile()); }
    // Where the window keeps unsaved samples when it closes: beside the settings file.
    static QString RecoveryPath() {
        return QCoreApplication::applicationDirPath() + QStringLiteral("/quorvel-unsaved.txt");
    }
    static QWidget *Open(const char *window) { return testsupport::TopLevel(QLatin1String(window)); }
    template <typename T = QWidget> T *In(const char *window, QAnyStringView name) {
        QWidget *w = QLatin1String(window) == QLatin1String("Form1") ? form_.get() : Open(window);
        return testsupport::Find<T>(w, name.toString());
    }
    QTreeWidget *List() { return In<QTreeWidget>("Form1", "ListView1"); }
    int AnyRow() { return 1 + Below(List()->topLevelItemCount()); }
    // Uses one of the controls named (separated by blanks) as its kind asks: a click, typing
    // or a choice. Returns `effect`, or NoEffect when the control was disabled or hidden.
    unsigned Drive(const char *window, QAnyStringView names, unsigned effect = NoEffect);
    void ClickToolbar(const QString &caption);
    // The answers to the dialogs of the action under way: a file dialog gets `path` (Escape
    // when it is empty), a question Yes or No, any other box OK.
    void Plan(const QString &path, bool yes = true);
    bool SawBox(const QString &title, const QString &text = QString()) const;
    void Say(const QString &what) { said_ += QStringLiteral("; ") + what.left(160); }
    void Settle();

    // The checks: the action's own, counted with the invariants; the first failure is kept.
    bool Check(bool ok, const QString &what);
    Samples Written(const std::vector<int> &order, bool withWords);
    QString Differs(const quorvel::DnaLibrary &library, int base, const Samples &expected);
    void CheckFile(const QString &path, const Samples &expected);
    void Before();
    void After(unsigned effects);
    // A new main window starts with the panels' first texts.
    void Restarted();

    std::unique_ptr<Form1> form_;
    QStringList saved_;
    QStringList seen_; // "title:text" of each message box answered
    int done = 0;
    long long checks = 0;
    std::mt19937_64 random_;
    quint64 seed_;
    QString folder_;
    int files_ = 0;
    QString said_;
    QString failure_;
    QTimer answerer_;
    QString path_;
    bool yes_ = true;
    // A file dialog still open after its path was typed went into a folder: the user gives up.
    QPointer<QWidget> typedInto_;
    // The main window's panels as the checks expect them: values and quality (Label14),
    // experimentation figures (Label42), statistics (Label23).
    QStringList shown_;
    quorvel::DnaTemplate before_;
    // Slots whose rows may show what a store through a stale selection wrote.
    QSet<int> mayDiffer_;
};
