#pragma once

#include <QAbstractTableModel>

#include <optional>
#include <vector>

/// Rows of a table in the material editor, edited through the document: inserted, removed, copied and pasted.
class HygMaterialRowModel : public QAbstractTableModel {
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Whether rows can be inserted and removed.
    virtual bool hasFreeRows() const { return true; }
    virtual void insertAfter(int row) = 0;
    virtual void removeEntries(const std::vector<int> & rows) = 0;
    /// All rows for a spreadsheet: lines of values separated by tabulators.
    virtual QString text() const = 0;
    /// Replaces all rows. Throws KOR::Exception with the line that cannot be used.
    virtual void setText(const QString & text) = 0;

signals:
    /// What was typed cannot be used.
    void refused(const QString & message);

protected:
    /// A finite number with point or comma.
    static std::optional<double> number(QString text);
    /// With all its digits.
    static QString shown(double value);
    /// A line of a spreadsheet cut at tabulators, semicolons and blanks.
    static QStringList parts(const QString & line);
};
