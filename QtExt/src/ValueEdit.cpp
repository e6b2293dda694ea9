#include <QtExt/ValueEdit.h>

#include <QtExt/Palette.h>

#include <KOR/Exception.h>
#include <KOR/Numbers.h>
#include <KOR/UnitList.h>

#include <QActionGroup>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QMenu>
#include <QPainter>
#include <QRegularExpression>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>

namespace QtExt {

namespace {

constexpr int DIGITS_CONVERTED = 12; ///< beyond these a conversion shows its rounding
constexpr int DIGITS_LIMIT = 6;
constexpr double RELATIVE_ROUNDING = 1e-12; ///< a limit typed in another unit must not miss by its rounding

/// What people type in place of the characters of the unit table.
struct Spelling {
    const char16_t * typed;
    const char16_t * written;
};
constexpr Spelling SPELLINGS[] = {
    {u"\u2212",  u"-"     },
    {u"\u00a0",  u" "     },
    {u"\u202f",  u" "     },
    {u"\u2009",  u" "     },
    {u"\u00b2",  u"2"     },
    {u"\u00b3",  u"3"     },
    {u"\u03bc",  u"\u00b5"},
    {u"\u00b0C", u"C"     },
    {u"\u00b0",  u"Deg"   },
};

QString normalized(QString text) {
    for (const Spelling & spelling : SPELLINGS)
        text.replace(QString::fromUtf16(spelling.typed), QString::fromUtf16(spelling.written));
    return text.trimmed();
}

/// A unit without the signs between its factors, as the unit table writes it: "kg/m2s05" for "kg/(m²·√s)".
QString plainUnit(QString text) {
    for (const QChar root : {QChar('s'), QChar('h')})
        text.replace(QChar(0x221a) + QString(root), QString(root) + QStringLiteral("05"));
    for (const QChar sign : {QChar(' '), QChar(0x00b7), QChar(0x22c5), QChar('*'), QChar('('), QChar(')')})
        text.remove(sign);
    return text;
}

/// Length of the number at the start of the text: 12, 12.5, 12,5, .5, -1e-3; 0 if there is none.
int numberLength(const QString & text) {
    const auto isDigit = [&](int i) { return i < text.size() && text[i] >= '0' && text[i] <= '9'; };
    const auto isOneOf = [&](int i, const char * characters) {
        return i < text.size() && QLatin1String(characters).contains(text[i]);
    };
    int i = isOneOf(0, "+-") ? 1 : 0;
    int digits = 0;
    for (; isDigit(i); ++i)
        ++digits;
    if (isOneOf(i, ".,"))
        for (++i; isDigit(i); ++i)
            ++digits;
    if (digits == 0)
        return 0;
    if (isOneOf(i, "eE")) {
        const int exponent = isOneOf(i + 1, "+-") ? i + 2 : i + 1;
        if (isDigit(exponent))
            for (i = exponent; isDigit(i);)
                ++i;
    }
    return i;
}

QString nameOf(KOR::Unit unit) {
    return QString::fromStdString(unit.name());
}

QString shownName(KOR::Unit unit) {
    return QString::fromStdString(unit.displayName());
}

/// With the decimal mark of the program's language.
QString formatted(double value, KOR::Unit unit, int digits) {
    QString number = QString::fromStdString(digits == 0 ? KOR::toString(value) : KOR::toString(value, digits));
    number.replace('.', QLocale().decimalPoint());
    const QString name = shownName(unit);
    return name.isEmpty() || name == QStringLiteral("°") ? number + name : number + ' ' + name;
}

double converted(KOR::Unit from, KOR::Unit to, double value) {
    KOR::UnitList::instance().convert(from, to, value);
    return value;
}

std::vector<KOR::Unit> unitsOfKind(KOR::Unit unit) {
    const KOR::UnitList & list = KOR::UnitList::instance();
    std::vector<KOR::Unit> units;
    for (std::size_t i = 0; i < list.size(); ++i)
        if (list.retrieve(i).base == unit.base().index())
            units.emplace_back(i);
    return units;
}

/// A sign in the colour of the palette, as large as the line.
QIcon sign(const QWidget & widget, const QColor & color, const std::function<void(QPainter &)> & draw) {
    constexpr int SIZE = 16;
    const qreal ratio = widget.devicePixelRatioF();
    QPixmap pixmap(QSize(SIZE, SIZE) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    draw(painter);
    return pixmap;
}

void drawArrow(QPainter & painter) {
    painter.drawPolyline(QPolygonF({
        {4.5,  6.5},
        {8,    10 },
        {11.5, 6.5}
    }));
}

void drawWarning(QPainter & painter) {
    painter.drawPolygon(QPolygonF({
        {8,  2 },
        {15, 14},
        {1,  14}
    }));
    painter.drawLine(QPointF(8, 6.5), QPointF(8, 9.5));
    painter.drawPoint(QPointF(8, 11.8));
}

/// A reason, for the user, why a text cannot be used.
struct Unusable {
    QString reason;
};

} // namespace

ValueEdit::ValueEdit(QWidget * parent) : ValueEdit(KOR::Parameter("Value", 0, KOR::Unit("---")), parent) {}

ValueEdit::ValueEdit(const KOR::Parameter & parameter, QWidget * parent)
    : QLineEdit(parent), m_unitAction(addAction(QIcon(), QLineEdit::TrailingPosition)),
      m_errorAction(addAction(QIcon(), QLineEdit::TrailingPosition)) {
    m_errorAction->setVisible(false);
    connect(m_unitAction, &QAction::triggered, this, &ValueEdit::popUpUnits);
    connect(m_errorAction, &QAction::triggered, this, &QLineEdit::selectAll);
    connect(this, &QLineEdit::textChanged, this, &ValueEdit::readText);
    setParameter(parameter);
    QEvent first(QEvent::PaletteChange); // draws the signs
    changeEvent(&first);
}

void ValueEdit::setParameter(const KOR::Parameter & parameter) {
    m_committed = parameter;
    if (!m_hasOwnUnits || m_units.empty() || m_units.front().base() != unit().base()) {
        m_units = unitsOfKind(unit());
        m_hasOwnUnits = false;
    }
    m_unitAction->setVisible(m_units.size() > 1);
    m_unitAction->setToolTip(tr("Show in another unit"));
    showValue(parameter);
}

KOR::Parameter ValueEdit::parameter() const {
    if (m_isEmptyAllowed && text().trimmed().isEmpty())
        return {};
    return m_current;
}

void ValueEdit::setMinimum(double value, KOR::Unit unit, bool isExcluded) {
    m_minimum = Limit{converted(unit, unit.base(), value), isExcluded};
    readText();
}

void ValueEdit::setMaximum(double value, KOR::Unit unit, bool isExcluded) {
    m_maximum = Limit{converted(unit, unit.base(), value), isExcluded};
    readText();
}

void ValueEdit::setEmptyAllowed(bool allowed) {
    m_isEmptyAllowed = allowed;
    readText();
}

void ValueEdit::setOfferedUnits(std::vector<KOR::Unit> units) {
    m_units = std::move(units);
    m_hasOwnUnits = true;
    m_unitAction->setVisible(m_units.size() > 1);
}

void ValueEdit::restore() {
    setText(m_shownText);
}

void ValueEdit::setUnit(KOR::Unit unit) {
    KOR::Parameter parameter = m_current;
    parameter.set_ioUnit(unit);
    m_committed = parameter;
    showValue(parameter, DIGITS_CONVERTED);
    emit valueChanged();
}

QSize ValueEdit::sizeHint() const {
    QSize size = QLineEdit::sizeHint();
    size.setWidth(fontMetrics().horizontalAdvance(QStringLiteral("0.000000000 kg/(m²·s)")) + 40);
    return size;
}

void ValueEdit::showValue(const KOR::Parameter & parameter, int digits) {
    m_shownDigits = digits;
    m_current = parameter;
    m_shownText =
        m_isEmptyAllowed && parameter.empty() ? QString() : formatted(parameter.ioValue(), parameter.ioUnit(), digits);
    {
        const QSignalBlocker blocker(this);
        setText(m_shownText);
    }
    readText();
}

void ValueEdit::readText() {
    try {
        if (text().trimmed().isEmpty()) {
            if (!m_isEmptyAllowed)
                throw Unusable{tr("Please enter a value.")};
        } else if (isEdited()) {
            const Reading reading = readValue(text());
            // What is typed into an empty field is a value, even if nobody named it.
            const KOR::Parameter parameter(m_committed.empty() ? "Value" : m_committed.name(), reading.value,
                                           reading.unit);
            checkRange(parameter);
            m_current = parameter;
        } else {
            m_current = m_committed; // with all its digits, whatever the text shows of them
            checkRange(m_current);
        }
        setError({});
    } catch (const Unusable & unusable) {
        m_current = m_committed;
        setError(unusable.reason);
    } catch (const KOR::Exception & ex) { // square roots and logarithms
        m_current = m_committed;
        setError(QString::fromStdString(ex.cause()));
    }
}

std::optional<ValueEdit::Reading> ValueEdit::readSum(const QString & text) const {
    static const QString PART = QStringLiteral("\\s*(\\d+(?:[.,]\\d+)?)\\s*([a-zA-Z]+)");
    static const QRegularExpression WHOLE(QStringLiteral("^(?:%1){2,}$").arg(PART)), EACH(PART);
    if (!WHOLE.match(text).hasMatch())
        return std::nullopt;
    std::optional<Reading> sum;
    for (auto parts = EACH.globalMatch(text); parts.hasNext();) {
        const auto part = parts.next();
        if (!sum && numberLength(text) > part.capturedEnd(1))
            return std::nullopt; // 1e3m
        const std::optional<double> value = KOR::parseDouble(part.captured(1).replace(',', '.').toStdString());
        const KOR::Unit written = readUnit(part.captured(2));
        if (!value || converted(written, written.base(), 0) != 0)
            return std::nullopt; // degrees are not added
        if (!sum)
            sum = Reading{*value, written};
        else
            sum->value += converted(written, sum->unit, *value);
    }
    return sum;
}

ValueEdit::Reading ValueEdit::readValue(const QString & text) const {
    const QString whole = normalized(text);
    if (const auto sum = readSum(whole))
        return *sum;
    const int length = numberLength(whole);
    QString number = whole.left(length);
    const QString rest = whole.mid(length).trimmed();
    const std::optional<double> value = KOR::parseDouble(number.replace(',', '.').toStdString());
    if (!value)
        throw Unusable{tr("'%1' is not a number.").arg(text.trimmed())};
    if (rest.isEmpty())
        return {*value, unit()};
    if ((rest[0].isDigit() || rest[0] == '.' || rest[0] == ',') &&
        KOR::UnitList::instance().find(rest.toStdString()) == nullptr)
        throw Unusable{tr("'%1' is not a number.").arg(text.trimmed())}; // 1.234,5 or 1 234
    const Reading reading{*value, readUnit(rest)};
    if (!std::isfinite(converted(reading.unit, reading.unit.base(), reading.value)))
        throw Unusable{tr("'%1' is not a number.").arg(text.trimmed())};
    return reading;
}

KOR::Unit ValueEdit::readUnit(const QString & text) const {
    const KOR::UnitList::Record * record = KOR::UnitList::instance().find(text.toStdString());
    if (record != nullptr && record->base == unit().base().index())
        return KOR::Unit(record->index);
    std::vector<KOR::Unit> alike; // MM for mm, but not for both mPa and MPa
    for (const KOR::Unit candidate : unitsOfKind(unit())) {
        if (text == normalized(shownName(candidate)) || plainUnit(text) == plainUnit(nameOf(candidate)))
            return candidate;
        if (nameOf(candidate).compare(text, Qt::CaseInsensitive) == 0)
            alike.push_back(candidate);
    }
    if (alike.size() == 1)
        return alike.front();
    throw Unusable{tr("'%1' is not a unit of this value; possible: %2.").arg(text, unitNames())};
}

void ValueEdit::checkRange(const KOR::Parameter & parameter) const {
    const double value = parameter.value();
    const auto isBeyond = [value](const std::optional<Limit> & limit, double sign) {
        if (!limit)
            return false;
        const double excess = sign * (value - limit->value);
        const double rounding = RELATIVE_ROUNDING * std::max(std::abs(value), std::abs(limit->value));
        return limit->isExcluded ? excess >= -rounding : excess > rounding;
    };
    const bool isTooSmall = isBeyond(m_minimum, -1);
    if (!isTooSmall && !isBeyond(m_maximum, 1))
        return;
    const auto shown = [&](const Limit & limit) {
        const KOR::Unit unit = parameter.ioUnit();
        return formatted(converted(unit.base(), unit, limit.value), unit, DIGITS_LIMIT);
    };
    if (m_minimum && m_maximum && !m_minimum->isExcluded && !m_maximum->isExcluded)
        throw Unusable{tr("The value must lie between %1 and %2.").arg(shown(*m_minimum), shown(*m_maximum))};
    const Limit & limit = isTooSmall ? *m_minimum : *m_maximum;
    const QString pattern =
        isTooSmall
            ? (limit.isExcluded ? tr("The value must be greater than %1.") : tr("The value must be at least %1."))
            : (limit.isExcluded ? tr("The value must be less than %1.") : tr("The value must be at most %1."));
    throw Unusable{pattern.arg(shown(limit))};
}

void ValueEdit::setError(const QString & error) {
    if (error == m_error)
        return;
    if (m_error.isEmpty())
        m_toolTip = toolTip();
    m_error = error;
    showError();
    emit messageChanged(m_error);
}

void ValueEdit::showError() {
    const bool isWrong = !isValid();
    m_errorAction->setVisible(isWrong);
    m_errorAction->setToolTip(m_error);
    setToolTip(isWrong ? m_error : m_toolTip);
    setAccessibleDescription(m_error);
    QPalette colors;
    colors.setColor(QPalette::Base, isWrong ? Palette::color(Palette::ERROR_BASE) : colors.color(QPalette::Base));
    setPalette(isWrong ? colors : QPalette());
}

bool ValueEdit::commit() {
    if (!isValid())
        return false;
    if (!isEdited())
        return true;
    const bool isNew = text().trimmed().isEmpty() || m_current != m_committed;
    if (text().trimmed().isEmpty()) {
        m_shownText = text();
    } else {
        m_committed = m_current;
        showValue(m_committed);
    }
    if (isNew)
        emit valueChanged();
    return true;
}

bool ValueEdit::event(QEvent * event) {
    // Escape and Enter belong to the field before they belong to a menu or a default button.
    if (event->type() == QEvent::ShortcutOverride && isEdited()) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter) {
            event->accept();
            return true;
        }
    }
    // What has been taken over is undone where it went, not in the field.
    if (event->type() == QEvent::ShortcutOverride && !isEdited()) {
        const auto & key = static_cast<const QKeyEvent &>(*event);
        if (key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo)) {
            event->ignore();
            return false;
        }
    }
    return QLineEdit::event(event);
}

void ValueEdit::keyPressEvent(QKeyEvent * event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape && isEdited()) {
        restore();
        selectAll();
    } else if (isEnter && (isEdited() || !isValid())) {
        commit();
        selectAll();
    } else if (event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier) {
        popUpUnits();
    } else {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
}

void ValueEdit::focusOutEvent(QFocusEvent * event) {
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        commit();
    QLineEdit::focusOutEvent(event);
}

void ValueEdit::fillUnitMenu(QMenu & menu) {
    auto * group = new QActionGroup(&menu);
    for (const KOR::Unit offered : m_units) {
        QString label = shownName(offered);
        bool isPossible = isValid();
        try { // shows what the value would become
            label = formatted(m_current.get_value(offered), offered, DIGITS_LIMIT);
        } catch (const KOR::Exception &) {
            isPossible = false;
        }
        QAction * action = menu.addAction(label);
        action->setObjectName(nameOf(offered));
        action->setCheckable(true);
        action->setChecked(offered == m_current.ioUnit());
        action->setEnabled(isPossible);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, offered] { setUnit(offered); });
    }
}

void ValueEdit::popUpUnits() {
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("units"));
    fillUnitMenu(menu);
    menu.exec(mapToGlobal(QPoint(width() - menu.sizeHint().width(), height())));
}

void ValueEdit::contextMenuEvent(QContextMenuEvent * event) {
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    if (m_units.size() > 1) {
        menu->addSeparator();
        fillUnitMenu(*menu->addMenu(tr("Unit")));
    }
    menu->exec(event->globalPos());
}

void ValueEdit::changeEvent(QEvent * event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange) {
        m_unitAction->setIcon(sign(*this, Palette::color(Palette::MUTED_TEXT), drawArrow));
        m_errorAction->setIcon(sign(*this, Palette::color(Palette::ERROR_TEXT), drawWarning));
        if (event->type() == QEvent::ApplicationPaletteChange && !isValid())
            showError();
    } else if (event->type() == QEvent::LanguageChange) {
        m_unitAction->setToolTip(tr("Show in another unit"));
        if (!isEdited())
            showValue(m_current, m_shownDigits); // with the decimal mark of the language
        readText();
    }
    QLineEdit::changeEvent(event);
}

QString ValueEdit::unitNames() const {
    constexpr std::size_t MAX_SHOWN = 8;
    QStringList names;
    for (std::size_t i = 0; i < std::min(m_units.size(), MAX_SHOWN); ++i)
        names << shownName(m_units[i]);
    if (m_units.size() > MAX_SHOWN)
        names << QStringLiteral("...");
    return names.join(QStringLiteral(", "));
}

} // namespace QtExt
