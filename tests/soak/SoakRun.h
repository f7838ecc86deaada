#pragma once

#include "DialogAnswerer.h"
#include "Invariants.h"
#include "SavedFile.h"
#include "TestSupport.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <random>
#include <vector>

class Form1;
class QAbstractButton;
class QComboBox;
class QLineEdit;

// A long run of random use of the real windows: a seeded sequence of actions, each followed
// by the checks of Invariants. The same seed gives the same actions.
class SoakRun {
public:
    explicit SoakRun(quint64 seed);
    ~SoakRun();

    // Runs `count` actions; returns an empty text, or what went wrong with the seed, the
    // action's number and the actions before it.
    QString Run(int count);

    int Done() const { return done_; }
    long long Checks() const { return checks_.Checks(); }
    // The action under way, for a report when the run breaks down.
    static QString Current();

private:
    struct Action {
        const char *name;
        int weight;
        std::function<bool()> available;
        std::function<unsigned()> run;
    };

    void AddFileActions();
    void AddListActions();
    void AddTemplateActions();
    void AddSessionActions();
    void AddEditorActions();
    void AddAddDnaActions();
    void AddWindowActions();
    void Add(const char *name, int weight, std::function<bool()> available, std::function<unsigned()> run);

    // Random choices, all from the one seeded generator.
    int Below(int n);
    bool Chance(int percent);
    template <typename T> const T &OneOf(const std::vector<T> &items) {
        return items[std::size_t(Below(int(items.size())))];
    }
    QString NumberText();
    QString NameText();
    QString Noise(int length);
    QString PathInFolder(const QString &stem);

    // The windows and controls, as a person finds them.
    Form1 &Main() { return *form_; }
    static QWidget *Open(const char *name);
    template <typename T> static T *In(QWidget *window, const QString &name) { return window->findChild<T *>(name); }
    QTreeWidget *List();
    bool ListShown();
    void Say(const QString &what);
    void ClickToolbar(const QString &caption);
    void TypeInto(QLineEdit *box, const QString &text);
    void ChooseInCombo(QComboBox *combo);
    static bool Reachable(QWidget *w);
    void Settle();

    // Actions shared by several entries.
    unsigned LoadFile(const QString &caption, bool replace);
    unsigned SaveFile(const QString &caption);
    unsigned LoadBack(const QString &path, const ReadBack &expected);
    unsigned Restart();
    unsigned Recover();
    unsigned Options();
    QString GoodFile(std::vector<quorvel::DnaRecord> &records, bool &wholeFile);

    std::unique_ptr<Form1> form_;
    std::mt19937_64 random_;
    quint64 seed_;
    DialogAnswerer answer_;
    Invariants checks_;
    std::vector<Action> actions_;
    QList<testsupport::BadDnaFile> badFiles_;
    QStringList savedFiles_;
    QString folder_;
    int files_ = 0;
    int done_ = 0;
    QString said_;
    QStringList recent_;
    bool trace_ = false;
};
