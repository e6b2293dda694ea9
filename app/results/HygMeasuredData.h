#pragma once

#include <QCoreApplication>
#include <QString>

#include <vector>

/// Measured values from a text table, to lie over computed courses.
struct HygMeasuredData {
    Q_DECLARE_TR_FUNCTIONS(HygMeasuredData)
public:
    struct Column {
        QString name;
        QString unit;               ///< KOR unit out of the heading, "Temperature [C]"; empty: that of the chart
        std::vector<double> values; ///< NaN where there is none
    };
    std::vector<double> times; ///< [s since the start of the start year], ascending
    std::vector<Column> columns;

    /// Reads a table whose columns are separated by semicolons, tabs or commas. The first column is a time: a number in
    /// the unit of its heading (hours without one) or a date as "2024-03-31 14:00" or "31.03.2024 14:00". Numbers may
    /// have a comma when it does not separate. Lines that begin with "#" are skipped,
    /// and those of 29 February, which years of 365 days do not have.
    /// \param startYear to which dates are related, in a calendar of 365 days
    /// Throws KOR::Exception ("[HygMeasuredData::read]") with the line.
    static HygMeasuredData read(const QString & path, int startYear);
};
