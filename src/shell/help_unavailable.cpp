#include "shell/help_unavailable.h"

#include <QDir>

#include "i18n/resgenstring.h"
#include "platform/file_lookup.h"

namespace wk {

namespace {

// What Help, Index says when no help file was found at start-up: where the help files of the
// language (and the English one every language falls back to) are looked for.
QString NoHelpFileText(const std::string& languageCode) {
    const QString folder =
        QDir::toNativeSeparators(QDir(QString::fromStdString(platform::CurrentDirectory()))
                                     .filePath(QStringLiteral("Help")));
    const QString own = QStringLiteral("Marvane%1.hlp").arg(QString::fromStdString(languageCode));
    const QString english = QStringLiteral("MarvaneEng.hlp");
    const QString files = own.compare(english, Qt::CaseInsensitive) == 0
                              ? own
                              : QStringLiteral("%1 nor %2").arg(own, english);
    return QStringLiteral("No help is installed: %1 holds no %2.").arg(folder, files);
}

// What it says when the help file is there but nothing could show it.
QString NoHelpViewerText(const std::string& helpFile) {
    return QStringLiteral("The help %1 cannot be shown: no help viewer could be started.")
        .arg(QDir::toNativeSeparators(QString::fromStdString(helpFile)));
}

}  // namespace

QString HelpUnavailableText(const LanguageState& language, const std::string& languageCode) {
    return language.HelpAvailable ? NoHelpViewerText(language.HelpFilePath)
                                  : NoHelpFileText(languageCode);
}

}  // namespace wk
