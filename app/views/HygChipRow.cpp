#include "views/HygChipRow.h"

#include <QBoxLayout>
#include <QEvent>

namespace {
constexpr int GAP = 4;
}

HygChipRow::HygChipRow(QWidget * parent) : QWidget(parent) {
    auto * layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(GAP);
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    layout->addStretch(1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

HygChipButton & HygChipRow::add() {
    auto * chip = new HygChipButton(this);
    auto * line = static_cast<QHBoxLayout *>(layout());
    line->insertWidget(line->count() - 1, chip);
    m_chips.push_back(chip);
    return *chip;
}

void HygChipRow::setTexts(std::size_t index, const QString & text, const QString & toolTip) {
    HygChipButton & chip = *m_chips[index];
    chip.setText(text);
    chip.setToolTip(toolTip.startsWith(text) ? toolTip : text + QStringLiteral(": ") + toolTip);
    fold();
}

QSize HygChipRow::hint(bool isCompact) const {
    QSize size(0, 0);
    for (const HygChipButton * chip : m_chips) {
        const QSize one = chip->sizeHint(isCompact);
        size = {size.width() + one.width() + (size.width() > 0 ? GAP : 0), std::max(size.height(), one.height())};
    }
    return size;
}

QSize HygChipRow::sizeHint() const {
    return hint(false);
}

QSize HygChipRow::minimumSizeHint() const {
    return hint(true);
}

void HygChipRow::fold() {
    const bool isCompact = hint(false).width() > width();
    for (HygChipButton * chip : m_chips)
        chip->setCompact(isCompact);
    updateGeometry();
}

void HygChipRow::resizeEvent(QResizeEvent * event) {
    QWidget::resizeEvent(event);
    fold();
}

bool HygChipRow::event(QEvent * event) {
    if (event->type() == QEvent::FontChange)
        fold();
    return QWidget::event(event);
}
