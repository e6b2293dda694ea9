#pragma once

#include <KOR/Parameter.h>

#include <QLineEdit>

#include <optional>
#include <vector>

class QMenu;

namespace QtExt {

/// A field for a value with its unit: accepts "12,5 mm", "0.0125 m", "1 h 30 min" or a bare number in the unit shown,
/// whatever the locale; shows the decimal mark of QLocale(). While the text cannot be used the field says why in place: by
/// colour, sign, tool tip and messageChanged().
///
/// Enter takes the text over and shows it in its own form; Enter on a text taken over goes to the dialog. Escape brings
/// the value taken over last back; without a change it goes to the dialog. Leaving the field is as Enter.
class ValueEdit : public QLineEdit {
    Q_OBJECT
public:
    explicit ValueEdit(QWidget * parent = nullptr);
    explicit ValueEdit(const KOR::Parameter & parameter, QWidget * parent = nullptr);

    /// Shows a value; its unit decides which units are accepted. A field that may be empty is, without a name.
    void setParameter(const KOR::Parameter & parameter);
    /// What the field shows, in the unit the user wrote. The value taken over last while the text is invalid; without
    /// a name when the field is empty and may be.
    KOR::Parameter parameter() const;

    /// Smallest value; \p isExcluded when it is no longer allowed itself.
    void setMinimum(double value, KOR::Unit unit, bool isExcluded = false);
    void setMaximum(double value, KOR::Unit unit, bool isExcluded = false);
    void setEmptyAllowed(bool allowed);
    /// Units of the menu; by default all of the same kind.
    void setOfferedUnits(std::vector<KOR::Unit> units);

    /// Brings the value taken over last back in place of what is typed.
    void restore();

    /// Shows the value in another unit of the same kind.
    void setUnit(KOR::Unit unit);
    KOR::Unit unit() const { return m_committed.ioUnit(); }

    bool isValid() const { return m_error.isEmpty(); }
    /// Why the text cannot be used; empty when it can.
    const QString & errorText() const { return m_error; }

    QSize sizeHint() const override;

signals:
    /// A new value or another unit has been taken over.
    void valueChanged();
    /// What is wrong with the text; empty when it is usable again.
    void messageChanged(const QString & message);

protected:
    bool event(QEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;
    void focusOutEvent(QFocusEvent * event) override;
    void contextMenuEvent(QContextMenuEvent * event) override;
    void changeEvent(QEvent * event) override;

private:
    struct Limit {
        double value; ///< in the base unit
        bool isExcluded;
    };
    struct Reading {
        double value;
        KOR::Unit unit;
    };

    void readText();
    Reading readValue(const QString & text) const;
    /// The sum of several values with units, as "1 h 30 min", in the unit of the first.
    std::optional<Reading> readSum(const QString & text) const;
    KOR::Unit readUnit(const QString & text) const;
    void checkRange(const KOR::Parameter & parameter) const;
    void setError(const QString & error);
    void showError();
    void showValue(const KOR::Parameter & parameter, int digits = 0);
    bool isEdited() const { return text() != m_shownText; }
    bool commit();
    void fillUnitMenu(QMenu & menu);
    void popUpUnits();
    QString unitNames() const;

    KOR::Parameter m_committed; ///< taken over last
    KOR::Parameter m_current;   ///< what the text says, the value taken over last while it is invalid
    bool m_isEmptyAllowed = false;
    std::optional<Limit> m_minimum;
    std::optional<Limit> m_maximum;
    std::vector<KOR::Unit> m_units;
    bool m_hasOwnUnits = false;
    QString m_shownText;   ///< form of the value taken over last
    int m_shownDigits = 0; ///< of it; 0: all
    QString m_toolTip;     ///< the one to return to
    QString m_error;
    QAction * m_unitAction;
    QAction * m_errorAction;
};

} // namespace QtExt
