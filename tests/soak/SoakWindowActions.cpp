// Folding, skins, the window's size, views and the small windows.
#include "SoakRun.h"

#include "Form1.h"

#include <QComboBox>
#include <QPushButton>
#include <QTest>

void SoakRun::AddWindowActions() {
    const auto always = [] { return true; };
    Add("fold", 3, always, [this] {
        static const std::array<const char *, 9> folds{"Label2_0", "Label2_1", "Label2_2", "Label2_3", "Label2_4",
                                                       "Label1",   "Label4",   "Label41",  "Command5"};
        const char *name = folds[static_cast<std::size_t>(Below(static_cast<int>(folds.size())))];
        Say(QLatin1String(name));
        testsupport::ClickWidget(In<QWidget>(&Main(), QLatin1String(name)));
        return unsigned(NoEffect);
    });
    Add(
        "choose a skin", 2, [this] { return Reachable(In<QWidget>(&Main(), QStringLiteral("Combo3"))); },
        [this] {
            ChooseInCombo(In<QComboBox>(&Main(), QStringLiteral("Combo3")));
            return unsigned(NoEffect);
        });
    Add("resize", 2, always, [this] {
        const int how = Below(10);
        if (how == 0) {
            Say(QStringLiteral("minimised"));
            Main().showMinimized();
        } else if (how == 1) {
            Say(QStringLiteral("maximised"));
            Main().showMaximized();
        } else if (how == 2) {
            Say(QStringLiteral("normal"));
            Main().showNormal();
        } else {
            const QSize size(500 + Below(900), 400 + Below(600));
            Say(QStringLiteral("to %1 x %2").arg(size.width()).arg(size.height()));
            Main().resize(size);
        }
        return unsigned(NoEffect);
    });
    Add("About", 1, always, [this] {
        ClickToolbar(QStringLiteral("About"));
        if (QWidget *about = Open("Form4"); about && Chance(70))
            testsupport::ClickWidget(In<QPushButton>(about, QStringLiteral("Command4")));
        return unsigned(NoEffect);
    });
    Add("view", 1, always, [this] {
        const QString view = Chance(60) ? QStringLiteral("DNA View") : QStringLiteral("Pet View");
        Say(view);
        ClickToolbar(view);
        return unsigned(NoEffect);
    });
    Add("filter", 1, always, [this] {
        ClickToolbar(Chance(50) ? QStringLiteral("Filter") : QStringLiteral("Filter On"));
        return unsigned(NoEffect);
    });
}
