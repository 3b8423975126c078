#pragma once
// The program's icon, drawn by code: a rounded blue desk with a white strip at its edge.

#include <QIcon>

namespace pd {

QIcon ProgramIcon();

} // namespace pd
