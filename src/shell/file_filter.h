#pragma once
// File dialog filters in the Windows form ("Text files (*.txt)|*.txt|All (*.*)|*.*") as the
// name filters of a Qt file dialog ("Text files (*.txt)", "All (*.*)").

#include <QStringList>

namespace wk {

// Each description|pattern pair becomes one Qt name filter. A description that already ends
// with its pattern in brackets is taken as it is; otherwise the pattern (';' separated
// patterns become space separated) is appended in brackets. A last description without a
// pattern is taken as its own pattern.
QStringList QtNameFilters(const QString& windowsFilter);

}  // namespace wk
