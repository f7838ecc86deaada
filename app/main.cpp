#include "DisplayScale.h"
#include "Form1.h"
#include "Resources.h"
#include "Version.h"

#include <QApplication>

int main(int argc, char *argv[]) {
    QApplication app(argc, argv);
    // The name also names the user's settings folder when the program's own is read-only.
    QCoreApplication::setApplicationName(QStringLiteral("quorvel"));
    QCoreApplication::setApplicationVersion(QLatin1String(version::kText));
    QGuiApplication::setDesktopFileName(QStringLiteral("quorvel"));
    QApplication::setWindowIcon(ProgramIcon());
    ApplyDisplayScale(PreferredDisplayScale());
    Form1 window;
    window.show();
    return app.exec();
}
