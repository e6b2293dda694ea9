#include "OutlineStyle.h"

#include <QApplication>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace QtExt {

namespace {

constexpr int FUSION_OUTLINE = 140; ///< Fusion's outline is the window's colour, darker by this per cent
constexpr int BUTTON_ROOM = 12;

bool isDark(const QStyleOption * option) {
    return option != nullptr && option->palette.color(QPalette::Window).lightness() < 128;
}

struct SignRow {
    QStyle::StandardPixmap pixmap;
    QRgb color;
    char16_t sign;
    bool isTriangle;
};
constexpr SignRow SIGNS[] = {
    {QStyle::SP_MessageBoxInformation, 0x1a66d6, u'i', false},
    {QStyle::SP_MessageBoxQuestion,    0x1a66d6, u'?', false},
    {QStyle::SP_MessageBoxWarning,     0xe0930b, u'!', true },
    {QStyle::SP_MessageBoxCritical,    0xc5362c, u'!', false},
};

QIcon drawnSign(const SignRow & row) {
    constexpr int SIZE = 128; // scaled down to what is wanted
    QPixmap pixmap(SIZE, SIZE);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(row.color));
    painter.setPen(QPen(QColor(row.color), 12, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QRect glyph(0, 0, SIZE, SIZE);
    if (row.isTriangle) {
        painter.drawPolygon(QPolygonF({
            {64,  14 },
            {120, 112},
            {8,   112}
        }));
        glyph.setTop(22);
    } else {
        painter.drawEllipse(QRectF(10, 10, 108, 108));
    }
    QFont font = QApplication::font();
    font.setPixelSize(76);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(glyph, Qt::AlignCenter, QString(QChar(row.sign)));
    painter.end();
    return pixmap;
}

} // namespace

OutlineStyle::OutlineStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

const QPalette & OutlineStyle::outlined(const QPalette & palette) const {
    if (palette.cacheKey() != m_source.cacheKey()) {
        m_source = palette;
        m_outlined = palette;
        const QColor outline = palette.color(QPalette::Disabled, QPalette::WindowText).darker(112);
        m_outlined.setColor(QPalette::Window, outline.lighter(FUSION_OUTLINE));
    }
    return m_outlined;
}

template <typename Option>
bool OutlineStyle::drawOutlined(PrimitiveElement element, const QStyleOption * option, QPainter * painter,
                                const QWidget * widget) const {
    const auto * own = qstyleoption_cast<const Option *>(option);
    if (own == nullptr)
        return false;
    Option copy = *own;
    copy.palette = outlined(option->palette);
    QProxyStyle::drawPrimitive(element, &copy, painter, widget);
    return true;
}

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption * option, QPainter * painter,
                                 const QWidget * widget) const {
    bool isDrawn = false;
    if (isDark(option)) {
        if (element == PE_FrameLineEdit || element == PE_Frame)
            isDrawn = drawOutlined<QStyleOptionFrame>(element, option, painter, widget);
        else if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton)
            isDrawn = drawOutlined<QStyleOptionButton>(element, option, painter, widget);
        else if (element == PE_IndicatorItemViewItemCheck)
            isDrawn = drawOutlined<QStyleOptionViewItem>(element, option, painter, widget);
    }
    if (!isDrawn)
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex * option, QPainter * painter,
                                      const QWidget * widget) const {
    const auto * spinBox = qstyleoption_cast<const QStyleOptionSpinBox *>(option);
    if (control != CC_SpinBox || spinBox == nullptr || !isDark(option)) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    QStyleOptionSpinBox copy = *spinBox;
    copy.palette = outlined(option->palette);
    QProxyStyle::drawComplexControl(control, &copy, painter, widget);
}

QSize OutlineStyle::sizeFromContents(ContentsType type, const QStyleOption * option, const QSize & size,
                                     const QWidget * widget) const {
    QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_PushButton && size.width() + BUTTON_ROOM > result.width() - BUTTON_ROOM)
        result.rwidth() += BUTTON_ROOM;
    return result;
}

int OutlineStyle::styleHint(StyleHint hint, const QStyleOption * option, const QWidget * widget,
                            QStyleHintReturn * returnData) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

QIcon OutlineStyle::standardIcon(StandardPixmap pixmap, const QStyleOption * option, const QWidget * widget) const {
    for (const SignRow & row : SIGNS)
        if (row.pixmap == pixmap)
            return drawnSign(row);
    return QProxyStyle::standardIcon(pixmap, option, widget);
}

} // namespace QtExt
