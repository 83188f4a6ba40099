// File dialog filters in the Windows form as the name filters of a Qt file dialog.

#include "shell/file_filter.h"

#include <gtest/gtest.h>

namespace wk {
namespace {

TEST(FileFilter, WindowsFilterOfBrowseForFileBecomesOneQtFilter) {
    EXPECT_EQ(QtNameFilters(QStringLiteral("Wave files (*.wav)|*.wav")),
              QStringList{QStringLiteral("Wave files (*.wav)")});
}

TEST(FileFilter, PatternsAreAddedWhenTheDescriptionLacksThem) {
    EXPECT_EQ(
        QtNameFilters(QStringLiteral("Pictures|*.bmp;*.png|All files (*.*)|*.*")),
        (QStringList{QStringLiteral("Pictures (*.bmp *.png)"), QStringLiteral("All files (*.*)")}));
}

TEST(FileFilter, EmptyFilterGivesNoFilters) {
    EXPECT_TRUE(QtNameFilters(QString()).isEmpty());
}

}  // namespace
}  // namespace wk
