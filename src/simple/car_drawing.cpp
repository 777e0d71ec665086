#include "simple/car_drawing.h"

#include "simple/panels.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRegion>

namespace est::simple {

namespace {

QPainterPath polygon(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(QList<QPointF>(points)));
    path.closeSubpath();
    return path;
}

QPainterPath rounded(const QRectF &rect, qreal radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    return path;
}

// A side panel whose lower edge is cut by a wheel arch centred at `wheelX` on the sill line.
QPainterPath withWheelArch(QPainterPath panel, qreal wheelX)
{
    QPainterPath arch;
    arch.addEllipse(QPointF(wheelX, 292), 34, 34);
    return panel.subtracted(arch);
}

// The car seen from the front or from behind, its roof at `top`: body, window and two lamps.
void drawEndView(QPainter &p, qreal top, const QBrush &body, const QBrush &glass, const QBrush &lamps,
                 std::initializer_list<QRectF> lampRects)
{
    p.setBrush(body);
    p.drawPolygon(QPolygonF({QPointF(470, top), QPointF(600, top), QPointF(618, top + 38), QPointF(618, top + 86),
                             QPointF(452, top + 86), QPointF(452, top + 38)}));
    p.setBrush(glass);
    p.drawPolygon(QPolygonF({QPointF(478, top + 6), QPointF(592, top + 6), QPointF(606, top + 34),
                             QPointF(464, top + 34)}));
    p.setBrush(lamps);
    for (const QRectF &rect : lampRects)
        p.drawRoundedRect(rect, 4, 4);
}

// Side view: front at the left, sill at y 292, wheels at x 95 and 345.
constexpr qreal kFrontWheel = 95;
constexpr qreal kRearWheel = 345;

} // namespace

QPainterPath panelPath(int num)
{
    switch (num) {
    case 1: // front bumper, side view
        return polygon({{56, 230}, {30, 236}, {20, 250}, {20, 280}, {28, 292}, {56, 292}});
    case 2:
        return withWheelArch(polygon({{56, 230}, {138, 206}, {138, 292}, {56, 292}}), kFrontWheel);
    case 3:
        return polygon({{138, 206}, {236, 203}, {236, 292}, {138, 292}});
    case 4:
        return polygon({{236, 203}, {308, 205}, {308, 292}, {236, 292}});
    case 5:
        return withWheelArch(polygon({{308, 205}, {398, 212}, {410, 240}, {404, 292}, {308, 292}}), kRearWheel);
    case 6: // plan view from above, front at the left
        return rounded({38, 38, 104, 84}, 12);
    case 7:
        return rounded({184, 40, 132, 80}, 10);
    case 8:
        return rounded({346, 42, 54, 76}, 8);
    case 9: // rear view
        return rounded({484, 214, 102, 26}, 4);
    case 10: // front view
        return rounded({490, 84, 90, 28}, 4);
    case 11: // minivan, side view
        return polygon({{528, 316}, {576, 316}, {576, 382}, {528, 382}});
    default:
        return {};
    }
}

class PanelPicture : public QWidget
{
public:
    PanelPicture(const Panel &panel, CarDrawing *drawing)
        : QWidget(drawing), m_num(panel.num), m_drawing(drawing)
    {
        setObjectName(QLatin1String(panel.pictureName));
        setToolTip(panel.caption);
        setAccessibleName(panel.caption);
        setCursor(Qt::PointingHandCursor);
        // Tab reaches each panel in turn; Space or Enter chooses it, as a click does.
        setFocusPolicy(Qt::StrongFocus);
        const QPainterPath path = panelPath(panel.num);
        const QRect box = path.boundingRect().toAlignedRect();
        setGeometry(box);
        m_path = path.translated(-box.topLeft());
        // Clicks outside the outline fall through to the drawing.
        setMask(QRegion(m_path.toFillPolygon().toPolygon()));
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QColor fill(0xdc, 0xe6, 0xf2);
        if (m_drawing->chosen() == m_num)
            fill = QColor(0xf0, 0x8c, 0x28);
        else if (m_drawing->hovered() == m_num)
            fill = QColor(0xff, 0xe0, 0x70);
        painter.setPen(QPen(QColor(0x33, 0x3d, 0x4a), 1.5));
        painter.setBrush(fill);
        painter.drawPath(m_path);
    }
    void enterEvent(QEnterEvent *) override { m_drawing->setHovered(m_num, true); }
    void leaveEvent(QEvent *) override { m_drawing->setHovered(m_num, false); }
    void focusInEvent(QFocusEvent *) override { m_drawing->setHovered(m_num, true); }
    void focusOutEvent(QFocusEvent *) override { m_drawing->setHovered(m_num, false); }
    void keyPressEvent(QKeyEvent *event) override
    {
        switch (event->key()) {
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            event->accept();
            Q_EMIT m_drawing->panelClicked(m_num);
            return;
        default:
            QWidget::keyPressEvent(event);
        }
    }
    void mousePressEvent(QMouseEvent *event) override { event->accept(); }
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
            Q_EMIT m_drawing->panelClicked(m_num);
    }

private:
    int m_num;
    CarDrawing *m_drawing;
    QPainterPath m_path;
};

CarDrawing::CarDrawing(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("picCar"));
    setFixedSize(kDrawingWidth, kDrawingHeight);
    for (const Panel &panel : panels())
        m_pictures.append(new PanelPicture(panel, this));
}

void CarDrawing::setChosen(int num)
{
    m_chosen = num;
    for (PanelPicture *picture : m_pictures)
        picture->update();
}

void CarDrawing::setHovered(int num, bool on)
{
    if (on)
        m_hovered = num;
    else if (m_hovered == num)
        m_hovered = 0;
    for (PanelPicture *picture : m_pictures)
        picture->update();
}

void CarDrawing::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillRect(rect(), Qt::white);
    const QPen outline(QColor(0x33, 0x3d, 0x4a), 1.5);
    const QBrush body(QColor(0xf4, 0xf6, 0xf8));
    const QBrush glass(QColor(0xa9, 0xc4, 0xdc));
    const QBrush tyre(QColor(0x40, 0x40, 0x40));
    const QBrush lamp(QColor(0xfa, 0xf0, 0xc8));
    const QBrush tail(QColor(0xe0, 0x50, 0x50));
    p.setPen(outline);

    // From above: body, windscreen and rear window between the panels.
    p.setBrush(body);
    p.drawRoundedRect(QRectF(22, 28, 396, 104), 34, 34);
    p.setBrush(glass);
    p.drawPolygon(QPolygonF({QPointF(148, 40), QPointF(180, 46), QPointF(180, 114), QPointF(148, 120)}));
    p.drawPolygon(QPolygonF({QPointF(320, 46), QPointF(342, 42), QPointF(342, 118), QPointF(320, 114)}));

    // From the side: cabin with windows, wheels.
    p.setBrush(body);
    p.drawPolygon(QPolygonF({QPointF(138, 206), QPointF(186, 158), QPointF(296, 156), QPointF(350, 208)}));
    p.setBrush(glass);
    p.drawPolygon(QPolygonF({QPointF(152, 202), QPointF(190, 164), QPointF(232, 163), QPointF(232, 201)}));
    p.drawPolygon(QPolygonF({QPointF(240, 201), QPointF(240, 163), QPointF(292, 162), QPointF(332, 203)}));
    p.setBrush(tyre);
    p.drawEllipse(QPointF(kFrontWheel, 292), 28, 28);
    p.drawEllipse(QPointF(kRearWheel, 292), 28, 28);
    p.setBrush(QColor(0xb0, 0xb0, 0xb0));
    p.drawEllipse(QPointF(kFrontWheel, 292), 12, 12);
    p.drawEllipse(QPointF(kRearWheel, 292), 12, 12);

    // From the front, headlamps beside the mask panel; from behind, tail lamps beside the rear panel.
    drawEndView(p, 40, body, glass, lamp, {QRectF(458, 86, 28, 18), QRectF(584, 86, 28, 18)});
    drawEndView(p, 166, body, glass, tail, {QRectF(458, 212, 22, 18), QRectF(590, 212, 22, 18)});

    // A minivan from the side, for the sliding door.
    p.setBrush(body);
    p.drawPolygon(QPolygonF({QPointF(452, 346), QPointF(468, 314), QPointF(492, 290), QPointF(610, 288),
                             QPointF(618, 300), QPointF(618, 382), QPointF(452, 382)}));
    p.setBrush(glass);
    p.drawPolygon(QPolygonF({QPointF(476, 312), QPointF(496, 296), QPointF(522, 296), QPointF(522, 312)}));
    p.drawRect(QRectF(582, 296, 30, 16));
    p.setBrush(tyre);
    p.drawEllipse(QPointF(486, 384), 16, 16);
    p.drawEllipse(QPointF(594, 384), 16, 16);

    p.setPen(QColor(0x55, 0x55, 0x55));
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.85);
    p.setFont(small);
    const auto caption = [&p](qreal x, qreal y, const QString &text) { p.drawText(QPointF(x, y), text); };
    caption(22, 18, QStringLiteral("上から（左が前）"));
    caption(22, 150, QStringLiteral("横から"));
    caption(452, 30, QStringLiteral("前から"));
    caption(452, 160, QStringLiteral("後ろから"));
    caption(452, 280, QStringLiteral("ミニバン（横から）"));
}

} // namespace est::simple
