#pragma once
// A drawing of a car seen from above, from the side, from the front and from behind, with a
// minivan's side for the sliding door. Each of the eleven panels is a clickable picture named
// after it (imgBampa ... imgSraidDor): the panel under the pointer is highlighted, the chosen
// one is marked.

#include <QPainterPath>
#include <QWidget>

namespace est::simple {

// The outline of a panel in the drawing's own coordinates (kDrawingSize); empty for an
// unknown number.
QPainterPath panelPath(int num);

// The size of the drawing, in pixels.
inline constexpr int kDrawingWidth = 640;
inline constexpr int kDrawingHeight = 420;

class PanelPicture;

class CarDrawing : public QWidget
{
    Q_OBJECT
public:
    explicit CarDrawing(QWidget *parent = nullptr);

    // Marks a panel as chosen (0: none).
    void setChosen(int num);
    int chosen() const { return m_chosen; }
    // The panel under the pointer (0: none).
    int hovered() const { return m_hovered; }

    QSize sizeHint() const override { return {kDrawingWidth, kDrawingHeight}; }

Q_SIGNALS:
    void panelClicked(int num);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    friend class PanelPicture;
    void setHovered(int num, bool on);

    QList<PanelPicture *> m_pictures;
    int m_chosen = 0;
    int m_hovered = 0;
};

} // namespace est::simple
