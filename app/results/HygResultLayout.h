#pragma once

#include "results/HygResultChart.h"

#include <QJsonObject>

/// What a chart shows, under a name; kept beside the results of the project.
struct HygResultLayout {
    QString name;
    QStringList files;       ///< below the project's output directory relative to it, else absolute
    QStringList directories; ///< shown beside the project's
    HygResultChart::Options options;
    double time = 0; ///< [s]

    QJsonObject toJson() const;
    static HygResultLayout fromJson(const QJsonObject & json);

    /// Of a project's output directory, in the order of saving. What cannot be read is left out, with a message.
    static std::vector<HygResultLayout> read(const QString & outputDirectory);
    /// Throws KOR::Exception ("[KOR::writeFile]").
    static void write(const QString & outputDirectory, const std::vector<HygResultLayout> & layouts);

    /// The path as it stands in a layout, and back.
    static QString stored(const QString & path, const QString & outputDirectory);
    static QString resolved(const QString & path, const QString & outputDirectory);
};
