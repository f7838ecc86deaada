#include "Resources.h"

// Outside any namespace: the macro declares the resource library's own function.
static bool InitResources() {
    Q_INIT_RESOURCE(quorvel);
    return true;
}

namespace {

QIcon Icon(const QString &name) {
    static const bool initialised = InitResources();
    Q_UNUSED(initialised);
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(name));
}

} // namespace

QIcon ProgramIcon() {
    return Icon(QStringLiteral("quorvel"));
}

QIcon ToolbarIcon(const QString &name) {
    return Icon(name);
}
