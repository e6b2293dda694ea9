#include "HygThresholdField.h"

#include "HygFormat.h"

#include <QtExt/Palette.h>
#include <SCI/Axis.h>

#include <KOR/Numbers.h>
#include <KOR/UnitList.h>

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

namespace {
constexpr int DIGITS = 6;
constexpr int WIDTH = 110; ///< [px]
} // namespace

HygThresholdField::HygThresholdField(QWidget * parent)
    : QWidget(parent), m_label(new QLabel(this)), m_edit(new QLineEdit(this)) {
    auto * layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
    layout->addWidget(m_edit);
    m_edit->setObjectName(QStringLiteral("threshold"));
    m_edit->setMaximumWidth(WIDTH);
    m_edit->setClearButtonEnabled(true);
    m_label->setBuddy(m_edit);
    setFocusProxy(m_edit);
    connect(m_edit, &QLineEdit::textChanged, this, [this] {
        judge();
        emit changed();
    });
    retranslate();
}

std::optional<double> HygThresholdField::value() const {
    return KOR::parseDouble(m_edit->text().replace(',', '.').toStdString());
}

void HygThresholdField::setValue(std::optional<double> value) {
    const QSignalBlocker blocker(m_edit);
    m_edit->setText(value ? HygFormat::number(*value, DIGITS) : QString());
    judge();
}

void HygThresholdField::setUnit(const QString & unit) {
    if (!unit.isEmpty() && unit != m_unit) {
        const KOR::Unit before(m_unit.isEmpty() ? unit.toStdString() : m_unit.toStdString()), now(unit.toStdString());
        if (std::optional<double> converted = value(); converted && before.base() == now.base()) {
            KOR::UnitList::instance().convert(before, now, *converted);
            setValue(converted);
        } else if (before.base() != now.base()) {
            setValue(std::nullopt);
        }
        m_unit = unit;
    }
    retranslate();
}

void HygThresholdField::dropNonsense() {
    if (!value())
        setValue(std::nullopt);
}

/// What cannot be read draws no line, and says so.
void HygThresholdField::judge() {
    const bool isWrong = !value() && !m_edit->text().trimmed().isEmpty();
    QPalette colours;
    if (isWrong)
        colours.setColor(QPalette::Base, QtExt::Palette::color(QtExt::Palette::ERROR_BASE));
    m_edit->setPalette(colours);
    m_edit->setToolTip(isWrong ? tr("'%1' is not a number; no line is drawn.").arg(m_edit->text())
                               : m_edit->accessibleName());
}

void HygThresholdField::changeEvent(QEvent * event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        if (const auto known = value())
            setValue(known); // with the decimal mark of the language
        retranslate();
    }
}

void HygThresholdField::retranslate() {
    const QString printed = SCI::printedUnit(m_unit);
    m_label->setText(printed.isEmpty() ? tr("Threshold:") : tr("Threshold [%1]:").arg(printed));
    m_edit->setPlaceholderText(tr("none"));
    m_edit->setAccessibleName(tr("A value in the unit shown; a line is drawn there and the share above it is told"));
    judge();
}
