#pragma once

#include <QPalette>
#include <QProxyStyle>

namespace QtExt {

/// The Fusion style with outlines that stand out from a dark window too, and a little more room in its buttons.
/// Fusion draws outlines darker than the window, which leaves an empty check box in a dark window all but invisible.
class OutlineStyle : public QProxyStyle {
    Q_OBJECT
public:
    OutlineStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption * option, QPainter * painter,
                       const QWidget * widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex * option, QPainter * painter,
                            const QWidget * widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption * option, const QSize & size,
                           const QWidget * widget) const override;
    /// Dialog buttons bear no pictures: the system's would not match our icons.
    int styleHint(StyleHint hint, const QStyleOption * option, const QWidget * widget,
                  QStyleHintReturn * returnData) const override;
    /// The signs of message boxes in our own drawing.
    QIcon standardIcon(StandardPixmap pixmap, const QStyleOption * option, const QWidget * widget) const override;

private:
    /// Draws with an option of the type that the element has; false if it is another.
    template <typename Option>
    bool drawOutlined(PrimitiveElement element, const QStyleOption * option, QPainter * painter,
                      const QWidget * widget) const;
    const QPalette & outlined(const QPalette & palette) const;

    mutable QPalette m_source; ///< of m_outlined; kept, since Fusion caches its drawings by palette
    mutable QPalette m_outlined;
};

} // namespace QtExt
