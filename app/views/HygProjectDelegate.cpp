#include "HygProjectDelegate.h"

#include "HygIconEngine.h"
#include "HygProjectListModel.h"

#include <QPainter>

namespace {

constexpr int ICON = 24;
constexpr int PADDING = 8;
constexpr int GAP = 2;

QColor mixed(const QColor & a, const QColor & b, double shareOfB) {
    return QColor::fromRgbF(a.redF() + (b.redF() - a.redF()) * shareOfB,
                            a.greenF() + (b.greenF() - a.greenF()) * shareOfB,
                            a.blueF() + (b.blueF() - a.blueF()) * shareOfB);
}

} // namespace

HygProjectDelegate::HygProjectDelegate(QString iconName, bool showsFolder, QObject * parent)
    : QStyledItemDelegate(parent), m_iconName(std::move(iconName)), m_showsFolder(showsFolder) {}

QSize HygProjectDelegate::sizeHint(const QStyleOptionViewItem & option, const QModelIndex &) const {
    const int line = option.fontMetrics.height();
    return {120, 2 * PADDING + (m_showsFolder ? 2 * line + GAP : std::max(line, ICON))};
}

void HygProjectDelegate::paint(QPainter * painter, const QStyleOptionViewItem & option,
                               const QModelIndex & index) const {
    const QPalette & palette = option.palette;
    const bool isMissing = index.data(HygProjectListModel::IsMissingRole).toBool();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
    const bool hasFocus = option.state.testFlag(QStyle::State_HasFocus);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(option.rect).adjusted(1.5, 1.5, -1.5, -1.5);
    const QColor base = palette.color(QPalette::Base);
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    if (isSelected || isHovered) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(mixed(base, highlight, isSelected ? 0.22 : 0.10));
        painter->drawRoundedRect(frame, 6, 6);
    }
    if (hasFocus) {
        painter->setPen(QPen(highlight, 1.5));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(frame, 6, 6);
    }

    const QColor text = palette.color(QPalette::Active, QPalette::Text);
    const QColor dim = mixed(text, base, 0.38);
    const QRect inner = option.rect.adjusted(PADDING + 2, PADDING, -PADDING - 2, -PADDING);
    const QRect iconRect(inner.left(), inner.center().y() - ICON / 2 + 1, ICON, ICON);
    HygIconEngine::icon(isMissing ? QStringLiteral("warning") : m_iconName, isMissing ? dim : QColor())
        .paint(painter, iconRect);

    QRect line(iconRect.right() + 12, inner.top(), 0, option.fontMetrics.height());
    line.setRight(inner.right());
    if (!m_showsFolder)
        line.moveTop(inner.center().y() - line.height() / 2);

    const QString date = index.data(HygProjectListModel::ModifiedRole).toString();
    painter->setFont(option.font);
    painter->setPen(dim);
    painter->drawText(line, Qt::AlignRight | Qt::AlignVCenter, date);

    QFont nameFont = option.font;
    nameFont.setWeight(QFont::DemiBold);
    QRect nameRect = line;
    if (!date.isEmpty())
        nameRect.setRight(line.right() - option.fontMetrics.horizontalAdvance(date) - 12);
    painter->setFont(nameFont);
    painter->setPen(isMissing ? dim : text);
    painter->drawText(nameRect, Qt::AlignLeft | Qt::AlignVCenter,
                      QFontMetrics(nameFont).elidedText(index.data().toString(), Qt::ElideMiddle, nameRect.width()));

    if (m_showsFolder) {
        line.translate(0, option.fontMetrics.height() + GAP);
        painter->setFont(option.font);
        painter->setPen(dim);
        painter->drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                          option.fontMetrics.elidedText(index.data(HygProjectListModel::FolderRole).toString(),
                                                        Qt::ElideMiddle, line.width()));
    }
    painter->restore();
}
