#include "dialogs/slut.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>

#include "engine/spela_ljud.h"
#include "platform/elements.h"
#include "platform/ending.h"
#include "platform/system_grip.h"

namespace brusbo {

namespace {

constexpr QSize smallest{120, 60};
constexpr int frame_width = 4;    // pixels
constexpr int corner_width = 16;  // pixels along the frame that move both edges

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

/// The box of the farewell text, which neither scrolls nor can be changed.
class TextBox : public QPlainTextEdit {
   public:
    TextBox(QWidget* parent, const ElementLook& look, const char* lines) : QPlainTextEdit(parent) {
        set_up(*this, look);
        setReadOnly(true);
        setContextMenuPolicy(Qt::NoContextMenu);
        // The last line break makes a ninth, empty line, which must not let the text scroll,
        // neither by wheel nor by selecting.
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        QScrollBar* const bar = verticalScrollBar();
        connect(bar, &QScrollBar::valueChanged, bar, [bar] { bar->setValue(0); });
        constexpr int margin = 2;  // pixels
        document()->setDocumentMargin(margin);
        const QString text = QString::fromUtf8(lines);
        const QSize room = contentsRect().size() - QSize(2 * margin, 2 * margin);
        setFont(fitted(Font::regular, text, room, true));
        QPalette ground = palette();
        ground.setColor(QPalette::Base, parent->palette().color(QPalette::Window));
        setPalette(ground);
        setPlainText(text);
    }

   protected:
    /// Only takes what copies the text; other keys would scroll.
    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Copy) || event->matches(QKeySequence::SelectAll))
            QPlainTextEdit::keyPressEvent(event);
        else
            event->ignore();
    }
    /// Neither scrolls nor, with Ctrl, makes the text larger or smaller.
    void wheelEvent(QWheelEvent* event) override { event->accept(); }
};

/// The farewell window's table.
struct Slut::Elements {
    QWidget* window;

    Label& Label1 = *new Label(window, {"Label1", {14, 10, 187, 29}, "Läs detta!"},
                               {Font::heading_bold}, "Läs detta!");
    TextBox& Text = *new TextBox(window, {"Text", {14, 54, 283, 111}, "Avskedstext"}, farewell);
    Label& Label2 = *new Label(window, {"Label2", {10, 180, 187, 17}, "Tryck sedan på stäng!"},
                               {Font::large_bold}, "Tryck sedan på stäng!");
    CommandButton& Stäng =
        *new CommandButton(window, {"Stäng", {236, 178, 65, 25}, "Stäng"}, "Stäng", QColor());
};

Slut::Slut() : Window("Slut", "", Qt::Window | Qt::FramelessWindowHint, {312, 212}) {
    setMinimumSize(smallest);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    setMouseTracking(true);
    const Elements elements{this};
    on_click(elements.Stäng, [this] { Stäng_Click(); });
    elements.Stäng.setFocus();
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
    painter.fillRect(inside_frame(), face);
}

// The elements keep their places, also where they lie under the frame of a window made small; the
// frame stays free for the mouse.
void Slut::resizeEvent(QResizeEvent*) {
    const auto elements = findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (QWidget* element : elements) {
        const QRect seen = inside_frame().translated(-element->pos()) & element->rect();
        // An empty mask would be none.
        element->setMask(seen.isEmpty() ? QRect(-1, -1, 1, 1) : seen);
    }
}

QRect Slut::inside_frame() const {
    return rect().adjusted(frame_width, frame_width, -frame_width, -frame_width);
}

Qt::Edges Slut::edges_at(QPoint place) const {
    if (inside_frame().contains(place)) return {};
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
