// The program's own pictures, built in.

#include "widgets/pictures.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>

namespace wk {
namespace {

TEST(Pictures, AllPicturesAreBuiltIn) {
    for (const char* name :
         {"MAINICON", "AboutProduct", "QenAxesOn", "QenAxesOff", "VKAxesOn", "VKAxesOff"}) {
        EXPECT_FALSE(PicturePixmap(name).isNull()) << name;
    }
    EXPECT_FALSE(MainIcon().isNull());
}

TEST(Pictures, AxesConventionPicturesHaveEqualSizes) {
    const QSize size = PicturePixmap("QenAxesOn").size();
    EXPECT_EQ(PicturePixmap("QenAxesOff").size(), size);
    EXPECT_EQ(PicturePixmap("VKAxesOn").size(), size);
    EXPECT_EQ(PicturePixmap("VKAxesOff").size(), size);
}

TEST(Pictures, OffPicturesAreGreyAndOnPicturesAreNot) {
    auto colourful = [](const QImage& image) {
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor c = image.pixelColor(x, y);
                if (c.alpha() > 0 && c.hsvSaturation() > 60) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_TRUE(colourful(PicturePixmap("QenAxesOn").toImage()));
    EXPECT_TRUE(colourful(PicturePixmap("VKAxesOn").toImage()));
    EXPECT_FALSE(colourful(PicturePixmap("QenAxesOff").toImage()));
    EXPECT_FALSE(colourful(PicturePixmap("VKAxesOff").toImage()));
}

}  // namespace
}  // namespace wk
