#pragma once

#include <QIcon>

// The icons compiled into the ui library, under ":/icons". The first call names the library's
// resources (a static library has to), so every icon is taken through here.
QIcon ProgramIcon();
QIcon ToolbarIcon(const QString &name);
