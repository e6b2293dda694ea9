#pragma once

#include <QWidget>

#include <optional>

class QLabel;
class QLineEdit;

/// A value in the unit that is shown, typed with point or comma; empty: none.
class HygThresholdField : public QWidget {
    Q_OBJECT
public:
    explicit HygThresholdField(QWidget * parent = nullptr);

    /// Nothing for an empty field and for what is no number.
    std::optional<double> value() const;
    void setValue(std::optional<double> value);
    /// The value in another unit; of another quantity there is none.
    void setUnit(const QString & unit);
    /// Says that the value is given in this unit.
    void setUnitOf(const QString & unit) { m_unit = unit; }
    /// Empties a field that holds no number.
    void dropNonsense();

signals:
    /// The user has typed.
    void changed();

protected:
    void changeEvent(QEvent * event) override;

private:
    void judge();
    void retranslate();

    QLabel * m_label;
    QLineEdit * m_edit;
    QString m_unit; ///< in which the value is given
};
