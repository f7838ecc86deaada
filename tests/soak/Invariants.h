#pragma once

#include "Template.h"

#include <QPointer>
#include <QSet>
#include <QString>

#include <array>

class Form1;
class QLabel;
class QTreeWidget;

// What an action did, as far as the checks need to know it.
enum Effect : unsigned {
    NoEffect = 0,
    Evaluated = 1 << 0,     // the template was evaluated and the pet predicted
    WholeCleared = 1 << 1,  // the whole template was emptied without an evaluation
    SampleDropped = 1 << 2, // the selected sample's pet was predicted
    Sorted = 1 << 3,        // a header click sorted the list
    SessionShown = 1 << 4,  // the experimentation window drew its session and predicted
};

// The checks made after every action, and what they remember from one action to the next:
// the texts the main window's template and statistics panels must still show, and the list
// rows that a store through a stale selection was allowed to leave showing another sample.
class Invariants {
public:
    // Before an action: the selection and the template as the action finds them.
    void Before(Form1 &form);
    // A check of the action's own; counted with the others, the first failure is kept.
    bool Check(bool ok, const QString &what);
    // After it: every check. Returns the first failure of the action, or an empty text.
    QString After(Form1 &form, unsigned effects);
    // A new main window starts with the panels' first texts.
    void Restarted();

    long long Checks() const { return checks_; }

private:
    struct PanelTexts {
        std::array<QString, 11> label14; // values and quality
        std::array<QString, 5> label42;  // experimentation figures
        std::array<QString, 11> label23; // statistics
    };

    void CheckNoModal();
    void CheckList(Form1 &form, bool sorted);
    void CheckPanels(Form1 &form, unsigned effects);
    void CheckSessionWindow(Form1 &form);

    PanelTexts Read(Form1 &form);
    PanelTexts Evaluation(Form1 &form) const;
    static PanelTexts Cleared();

    long long checks_ = 0;
    QString failure_;
    PanelTexts shown_ = Cleared();
    quorvel::DnaTemplate before_;
    // Slots whose rows may show what a store through a stale selection wrote.
    QSet<int> mayDiffer_;
};
