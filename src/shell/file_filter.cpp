#include "shell/file_filter.h"

namespace wk {

QStringList QtNameFilters(const QString& windowsFilter) {
    const QStringList parts = windowsFilter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        const QString description = parts[i].trimmed();
        QString patterns = i + 1 < parts.size() ? parts[i + 1].trimmed() : description;
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        if (description.isEmpty() && patterns.isEmpty()) {
            continue;
        }
        const QString bracketed = QStringLiteral("(") + patterns + QStringLiteral(")");
        if (description.endsWith(bracketed)) {
            filters << description;
        } else {
            filters << (description.isEmpty() ? bracketed
                                              : description + QLatin1Char(' ') + bracketed);
        }
    }
    return filters;
}

}  // namespace wk
