#include "widgets/pictures.h"

#include <QPainter>
#include <QSvgRenderer>

// Q_INIT_RESOURCE must be used outside a namespace.
static void InitPictureResources() {
    Q_INIT_RESOURCE(pictures);
}

namespace wk {

void LoadPictures() {
    static const bool loaded = [] {
        InitPictureResources();
        return true;
    }();
    (void)loaded;
}

QString PicturePath(const char* name) {
    return QStringLiteral(":/pictures/") + QString::fromLatin1(name) + QStringLiteral(".svg");
}

QIcon MainIcon() {
    LoadPictures();
    QIcon icon;
    for (int side : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(PicturePixmap("MAINICON", QSize(side, side)));
    }
    return icon;
}

QPixmap PicturePixmap(const char* name, QSize size) {
    LoadPictures();
    QSvgRenderer renderer(PicturePath(name));
    if (!renderer.isValid()) {
        return QPixmap();
    }
    if (!size.isValid()) {
        size = renderer.defaultSize();
    }
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

}  // namespace wk
