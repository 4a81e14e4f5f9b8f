#include "mainwindow/picture_stores.h"

#include <cassert>

#include "platform/picture_elements.h"

namespace brusbo {

namespace {

struct StoreRow {
    Store store;
    const char* name;
    int count;
    Picture first;
};

constexpr StoreRow stores[] = {
    {Store::gimgRöd, "gimgRöd", 1, picture("piece-1")},
    {Store::gimgBlå, "gimgBlå", 1, picture("piece-2")},
    {Store::gimgGrön, "gimgGrön", 1, picture("piece-3")},
    {Store::gimgGul, "gimgGul", 1, picture("piece-4")},
    {Store::T, "T", 6, picture("die-1")},
    {Store::gimgPlus, "gimgPlus", 1, picture("marker")},
    {Store::gimgArkiv, "gimgArkiv", 2, picture("arkiv-0")},
    {Store::gimgOm, "gimgOm", 2, picture("om-0")},
    {Store::gimgMinimera, "gimgMinimera", 2, picture("minimise-0")},
    {Store::GimgAvsluta, "GimgAvsluta", 2, picture("close-0")},
};

}  // namespace

Picture picture_of(StorePicture picture) {
    const StoreRow& row = stores[static_cast<int>(picture.store)];
    assert(row.store == picture.store && picture.index >= 0 && picture.index < row.count);
    return nth(row.first, picture.index);
}

PictureStores::PictureStores(QWidget* board) : QWidget(board) {
    set_up(*this, {"Grafik", {0, 0, 1, 1}, "", false});
    for (const StoreRow& row : stores) {
        for (int index = 0; index < row.count; ++index) {
            const Picture picture = nth(row.first, index);
            const QString name =
                row.count == 1 ? QString::fromUtf8(row.name) : numbered(row.name, index);
            const QSize extent = picture_size(picture);
            new Image(this, {name, {0, 0, extent.width(), extent.height()}}, picture);
        }
    }
}

}  // namespace brusbo
