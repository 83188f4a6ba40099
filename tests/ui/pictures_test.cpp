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

// How saturated the colour of a picture is at a point of its 96 by 96 design grid.
int SaturationAt(const QImage& image, int x, int y) {
    const QColor c = image.pixelColor(x * image.width() / 96, y * image.height() / 96);
    return c.alpha() > 0 ? c.hsvSaturation() : 0;
}

// Whether a picture has pixels of a strong colour in the part of the design grid where the
// machine and its axes are drawn (below the frame's corner with the tick).
bool DrawingInColour(const QImage& image) {
    for (int y = image.height() / 4; y < image.height() * 15 / 16; ++y) {
        for (int x = image.width() / 16; x < image.width() * 15 / 16; ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.alpha() > 0 && c.hsvSaturation() > 120 && c.value() > 100) return true;
        }
    }
    return false;
}

// The convention not chosen must not look disabled: both looks show the machine and the axes
// in their colours, so the user can read either one.
TEST(Pictures, BothLooksOfAConventionShowItsAxesInTheirColours) {
    for (const char* name : {"QenAxesOn", "QenAxesOff", "VKAxesOn", "VKAxesOff"}) {
        EXPECT_TRUE(DrawingInColour(PicturePixmap(name).toImage())) << name;
    }
}

// What tells the chosen one apart is its frame in the highlight colour and the tick in its
// corner; the other has a plain grey frame and an empty ring there.
TEST(Pictures, OnlyTheChosenLookIsFramedAndTickedInTheHighlightColour) {
    for (const char* name : {"QenAxesOn", "VKAxesOn"}) {
        const QImage image = PicturePixmap(name, QSize(96, 96)).toImage();
        EXPECT_GT(SaturationAt(image, 48, 1), 150) << name << ": frame";
        EXPECT_GT(SaturationAt(image, 1, 48), 150) << name << ": frame";
        EXPECT_GT(SaturationAt(image, 77, 13), 150) << name << ": tick";
    }
    for (const char* name : {"QenAxesOff", "VKAxesOff"}) {
        const QImage image = PicturePixmap(name, QSize(96, 96)).toImage();
        EXPECT_LT(SaturationAt(image, 48, 0), 40) << name << ": frame";
        EXPECT_LT(SaturationAt(image, 0, 48), 40) << name << ": frame";
        EXPECT_LT(SaturationAt(image, 77, 13), 40) << name << ": ring";
        EXPECT_LT(SaturationAt(image, 83, 13), 40) << name << ": ring";
    }
}

}  // namespace
}  // namespace wk
