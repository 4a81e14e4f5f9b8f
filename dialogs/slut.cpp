#include "dialogs/slut.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>

#include "engine/spela_ljud.h"
#include "platform/ending.h"
#include "platform/input_gate.h"
#include "platform/system_grip.h"

namespace brusbo {

namespace {

constexpr QSize client_area{312, 212};
constexpr QSize smallest{120, 60};
constexpr int frame_width = 4;    // pixels
constexpr int corner_width = 16;  // pixels along the frame that move both edges

constexpr ElementLook Label1{"Label1", {14, 10, 187, 29}, "Läs detta!"};
constexpr ElementLook Text{"Text", {14, 54, 283, 111}, "Avskedstext"};
constexpr ElementLook Label2{"Label2", {10, 180, 187, 17}, "Tryck sedan på stäng!"};
constexpr ElementLook Stäng{"Stäng", {236, 178, 65, 25}, "Stäng"};

constexpr char farewell[] =
    "Tack för att ni spelade Brusbo!\r\n"
    "Vi hoppas att ni hade roligt runt brädet.\r\n"
    "Titta gärna in på vår hemsida. Där hittar ni\r\n"
    "våra andra spel och program, alla på svenska.\r\n"
    "Prova till exempel vårt memoryspel Parvis,\r\n"
    "som passar både stora och små.\r\n"
    "Adressen är https://brusbo.example.org\r\n"
    "Välkommen åter!\r\n";

}  // namespace

Slut::Slut() : Window("Slut", "", Qt::Window | Qt::FramelessWindowHint, client_area) {
    setMinimumSize(smallest);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    setMouseTracking(true);

    new Label(this, Label1, {Font::heading_bold}, "Läs detta!");
    auto* text = new QPlainTextEdit(this);
    set_up(*text, Text);
    text->setReadOnly(true);
    text->setContextMenuPolicy(Qt::NoContextMenu);
    text->setFont(window_font(Font::regular));
    // The last line break makes a ninth, empty line, which must not let the text scroll, neither by
    // wheel nor by selecting.
    text->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    text->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    text->document()->setDocumentMargin(2);
    QPalette colours = text->palette();
    colours.setColor(QPalette::Base, palette().color(QPalette::Window));
    text->setPalette(colours);
    text->setPlainText(QString::fromUtf8(farewell));
    QScrollBar* const bar = text->verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, bar, [bar] { bar->setValue(0); });
    new Label(this, Label2, {Font::large_bold}, "Tryck sedan på stäng!");
    auto* close = new CommandButton(this, Stäng, "Stäng", palette().color(QPalette::Button));
    connect(close, &QAbstractButton::clicked, this,
            [this] { InputGate::instance().run([this] { Stäng_Click(); }); });
    close->setFocus();
}

void Slut::Stäng_Click() {
    Spela_ljud(sound_click);
    end_program();
}

// The resizable frame is our own: without a caption no window manager draws one for the asking.
void Slut::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor face = palette().color(QPalette::Window);
    painter.fillRect(rect(), face.darker(190));
    painter.fillRect(rect().adjusted(1, 1, -1, -1), face.lighter(110));
    painter.fillRect(rect().adjusted(2, 2, -2, -2), face.darker(112));
    painter.fillRect(rect().adjusted(frame_width, frame_width, -frame_width, -frame_width), face);
}

Qt::Edges Slut::edges_at(QPoint place) const {
    const QRect inside = rect().adjusted(frame_width, frame_width, -frame_width, -frame_width);
    if (inside.contains(place)) return {};
    const QRect middle = rect().adjusted(corner_width, corner_width, -corner_width, -corner_width);
    Qt::Edges edges;
    if (place.x() < middle.left()) edges |= Qt::LeftEdge;
    if (place.x() > middle.right()) edges |= Qt::RightEdge;
    if (place.y() < middle.top()) edges |= Qt::TopEdge;
    if (place.y() > middle.bottom()) edges |= Qt::BottomEdge;
    return edges;
}

void Slut::mousePressEvent(QMouseEvent* event) {
    const Qt::Edges edges = edges_at(event->position().toPoint());
    if (event->button() != Qt::LeftButton || !edges) return;
    if (system_resizes(*this, edges, *event)) return;
    grip_ = edges;
    grip_place_ = event->globalPosition().toPoint();
    grip_geometry_ = geometry();
}

void Slut::mouseMoveEvent(QMouseEvent* event) {
    if (grip_ && event->buttons().testFlag(Qt::LeftButton)) {
        resize_to(event->globalPosition().toPoint());
        return;
    }
    grip_ = {};
    const Qt::Edges edges = edges_at(event->position().toPoint());
    const bool both =
        (edges & (Qt::LeftEdge | Qt::RightEdge)) && (edges & (Qt::TopEdge | Qt::BottomEdge));
    const bool falling =
        edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge);
    setCursor(!edges                                   ? Qt::ArrowCursor
              : both && falling                        ? Qt::SizeFDiagCursor
              : both                                   ? Qt::SizeBDiagCursor
              : edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor
                                                       : Qt::SizeVerCursor);
}

void Slut::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) grip_ = {};
}

void Slut::resize_to(QPoint global_place) {
    const QPoint moved = global_place - grip_place_;
    QRect wanted = grip_geometry_;
    if (grip_ & Qt::LeftEdge)
        wanted.setLeft(std::min(wanted.left() + moved.x(), wanted.right() + 1 - smallest.width()));
    if (grip_ & Qt::RightEdge)
        wanted.setRight(std::max(wanted.right() + moved.x(), wanted.left() - 1 + smallest.width()));
    if (grip_ & Qt::TopEdge)
        wanted.setTop(std::min(wanted.top() + moved.y(), wanted.bottom() + 1 - smallest.height()));
    if (grip_ & Qt::BottomEdge)
        wanted.setBottom(
            std::max(wanted.bottom() + moved.y(), wanted.top() - 1 + smallest.height()));
    setGeometry(wanted);
}

}  // namespace brusbo
