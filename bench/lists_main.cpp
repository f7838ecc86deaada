// The DNA list against a bare QTreeWidget of the same size in a bare window, in one process:
// loading 500 samples through the loader with their rows, against filling the bare view with
// the same 500 x 16 texts; and sorting by a column then "No Sort", against the bare view's own
// sort and a refill. Each side includes the repaint that follows it. Prints table rows.
//   quorvel_bench_lists [rounds]
#include "AppModel.h"
#include "DnaFile.h"
#include "Form1.h"
#include "Samples.h"
#include "UiText.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QTest>
#include <QToolBar>
#include <QTreeWidget>

#include <cstdlib>
#include <sstream>
#include <vector>

namespace {

constexpr int kPowerColumn = 11;

// The loader's part of a load once the dialog has given the path.
void LoadThroughLoader(quorvel::AppModel &model, const std::string &path, quorvel::LoadMode mode) {
    model.SetLastDnaFile(path);
    model.StartLoad();
    model.ReadDnaFile(mode);
}

void FillBare(QTreeWidget &view, const std::vector<QStringList> &rows) {
    QList<QTreeWidgetItem *> items;
    for (const QStringList &texts : rows)
        items << new QTreeWidgetItem(texts);
    view.addTopLevelItems(items);
}

QAction *ToolbarAction(Form1 &form, const QString &caption) {
    for (QAction *action : form.findChild<QToolBar *>(QStringLiteral("Toolbar1"))->findChildren<QAction *>()) {
        if (action->text() == caption)
            return action;
    }
    return nullptr;
}

template <typename F> double TimedMs(F &&work) {
    QElapsedTimer timer;
    timer.start();
    work();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

} // namespace

int main(int argc, char *argv[]) {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 7;
    QApplication app(argc, argv);
    const std::string path = QDir::tempPath().toStdString() + "/quorvel_bench_500.txt";
    const std::string emptyPath = QDir::tempPath().toStdString() + "/quorvel_bench_empty.txt";
    const std::string text = bench::SampleDnaText(500);
    if (!bench::WriteFile(path, text) || !bench::WriteFile(emptyPath, ""))
        return 1;

    // The same texts the loader puts in the rows.
    std::vector<QStringList> rows;
    {
        std::istringstream in(text);
        quorvel::DnaLibrary library;
        quorvel::LoadDnaStream(in, library, [&rows](int, const quorvel::RowCells &cells) {
            QStringList texts;
            for (const auto &cell : cells)
                texts << ToQt(cell);
            rows.push_back(texts);
        });
    }

    Form1 form;
    form.show();
    quorvel::AppModel &model = form.Model();
    auto *list = form.findChild<QTreeWidget *>(QStringLiteral("ListView1"));
    // The bare view has the list's size, place and header texts.
    QMainWindow bareWindow;
    bareWindow.setCentralWidget(new QWidget);
    auto *bare = new QTreeWidget(bareWindow.centralWidget());
    QStringList labels;
    for (int c = 0; c < quorvel::kListColumns; ++c)
        labels << list->headerItem()->text(c);
    bare->setHeaderLabels(labels);
    bareWindow.resize(form.size());
    bare->setGeometry(list->geometry());
    bareWindow.show();
    if (!QTest::qWaitForWindowExposed(&form) || !QTest::qWaitForWindowExposed(&bareWindow))
        return 1;

    QAction *noSort = ToolbarAction(form, QStringLiteral("No Sort"));
    std::vector<double> oursLoad, bareLoad, oursSort, bareSort;
    for (int round = 0; round < rounds; ++round) {
        // Loading an empty file empties the library and the list.
        LoadThroughLoader(model, emptyPath, quorvel::LoadMode::Replace);
        bare->clear();
        QCoreApplication::processEvents();
        oursLoad.push_back(TimedMs([&] { LoadThroughLoader(model, path, quorvel::LoadMode::Append); }));
        bareLoad.push_back(TimedMs([&] { FillBare(*bare, rows); }));
        oursSort.push_back(TimedMs([&] {
            model.SortDnaList(static_cast<quorvel::ListColumn>(kPowerColumn));
            QCoreApplication::processEvents();
            noSort->trigger();
        }));
        bareSort.push_back(TimedMs([&] {
            bare->sortItems(kPowerColumn, Qt::AscendingOrder);
            QCoreApplication::processEvents();
            bare->clear();
            FillBare(*bare, rows);
        }));
    }
    std::remove(path.c_str());
    std::remove(emptyPath.c_str());
    bench::PrintRow("load 500 samples with rows", bench::Median(oursLoad), bench::Median(bareLoad), "ms", 1.5);
    bench::PrintRow("sort + No Sort of 500 rows", bench::Median(oursSort), bench::Median(bareSort), "ms", 1.5);
    return 0;
}
