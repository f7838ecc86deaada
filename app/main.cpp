#include "DisplayScale.h"
#include "Form1.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char *argv[]) {
    QApplication app(argc, argv);
    // The name also names the user's settings folder when the program's own is read-only.
    QCoreApplication::setApplicationName(QStringLiteral("quorvel"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUORVEL_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("quorvel"));
    Q_INIT_RESOURCE(quorvel);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/quorvel.svg")));
    ApplyDisplayScale(PreferredDisplayScale());
    Form1 window;
    window.show();
    return app.exec();
}
