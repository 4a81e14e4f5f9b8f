#include "mainwindow/mfrm_elements.h"

namespace brusbo {

std::vector<PictureButton*> MFrmElements::make_pieces() {
    static constexpr const char* colours[] = {"Röd", "Blå", "Grön", "Gul"};
    std::vector<PictureButton*> made;
    for (int b = 0; b < 16; ++b) {
        const LayoutPlace place = layout_places[b];
        const QString accessible =
            QStringLiteral("%1 pjäs %2").arg(QString::fromUtf8(colours[b / 4])).arg(b % 4 + 1);
        made.push_back(&add<PictureButton>(
            Element::Pjäs, Picture1,
            {numbered("Pjäs", b), {place.left, place.top, 26, 26}, accessible}));
    }
    return made;
}

std::vector<Image*> MFrmElements::make_markers() {
    std::vector<Image*> made;
    for (int b = 0; b < 16; ++b) {
        const int row = b / 4;
        const Place place{8.0 * (b % 4), 10.0 * row, 9, 9};
        made.push_back(&add<Image>(Element::Plus, Picture1,
                                   {numbered("Plus", b), place, "Flera pjäser", false}));
        made.back()->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    return made;
}

}  // namespace brusbo
