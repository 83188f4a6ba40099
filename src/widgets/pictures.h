#pragma once
// The program's own pictures (resources/pictures), built in with the Qt resource system.

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace wk {

// Makes the built-in pictures available; the window and the dialogs call it before they use
// one (the pictures live in a static library, whose resources are not registered by
// themselves).
void LoadPictures();

// A picture by name ("MAINICON", "AboutProduct", "QenAxesOn", ...): the resource path, the
// application icon, and the picture drawn at its own size or a given one.
QString PicturePath(const char* name);
QIcon MainIcon();
QPixmap PicturePixmap(const char* name, QSize size = QSize());

}  // namespace wk
