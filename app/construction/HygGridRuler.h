#pragma once

#include <QWidget>

struct HygConstructionScene;

/// The widths along one direction: layers in the outer band, cells in the inner one. A click selects columns or rows, a
/// drag several; a double click asks for another width.
class HygGridRuler : public QWidget {
    Q_OBJECT
public:
    static constexpr int BAND = 21; ///< pixels of each band

    HygGridRuler(const HygConstructionScene & scene, Qt::Orientation orientation, QWidget * parent);

    /// Where the drawing begins in the ruler's coordinates.
    void setShift(int pixels) { m_shift = pixels; }
    /// The place of columns or rows in the ruler, for a field that is laid over them.
    QRect place(std::size_t first, std::size_t last) const;

signals:
    /// Columns or rows between \p from and \p to, with the border of layers included for clicks on the outer band.
    void selected(int from, int to, Qt::KeyboardModifiers modifiers);
    void widthRequested(int first, int last);

protected:
    void paintEvent(QPaintEvent * event) override;
    void mousePressEvent(QMouseEvent * event) override;
    void mouseMoveEvent(QMouseEvent * event) override;
    void mouseDoubleClickEvent(QMouseEvent * event) override;
    bool event(QEvent * event) override;

private:
    struct Run {
        int first = -1;
        int last = -1;
    };
    const class HygGridAxis & axis() const;
    const std::vector<std::uint32_t> & borders() const;
    Run runAt(const QPoint & position) const;
    void drawWidths(QPainter & painter, const std::vector<std::uint32_t> & list, bool isOuter) const;

    const HygConstructionScene & m_scene;
    bool m_isHorizontal;
    int m_shift = 0;
    Run m_pressed;
};
