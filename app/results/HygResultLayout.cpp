#include "HygResultLayout.h"

#include <KOR/Exception.h>
#include <KOR/FileIO.h>
#include <KOR/Path.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

constexpr std::size_t MAX_SIZE = 4 << 20; ///< [bytes]
constexpr int MAX_LAYOUTS = 200;

using Options = HygResultChart::Options;
struct FlagRow {
    const char * name;
    bool Options::*member;
};
constexpr FlagRow FLAGS[] = {
    {"overTime",   &Options::isOverTime   },
    {"dates",      &Options::hasDates     },
    {"smooth",     &Options::isSmooth     },
    {"isolines",   &Options::hasIsolines  },
    {"arrows",     &Options::hasArrows    },
    {"dewPoint",   &Options::hasDewPoint  },
    {"mouldLimit", &Options::hasMouldLimit},
};

QString fileOf(const QString & outputDirectory) {
    return outputDirectory + "/charts.json";
}
QStringList texts(const QJsonValue & value) {
    QStringList list;
    for (const QJsonValue & item : value.toArray())
        list << item.toString();
    return list;
}

} // namespace

QString HygResultLayout::stored(const QString & path, const QString & outputDirectory) {
    return path.startsWith(outputDirectory + '/') ? path.mid(outputDirectory.size() + 1) : path;
}

QString HygResultLayout::resolved(const QString & path, const QString & outputDirectory) {
    return QFileInfo(path).isAbsolute() ? path : outputDirectory + '/' + path;
}

QJsonObject HygResultLayout::toJson() const {
    QJsonObject json{
        {"name",        name                                   },
        {"files",       QJsonArray::fromStringList(files)      },
        {"directories", QJsonArray::fromStringList(directories)},
        {"time_s",      time                                   },
        {"unit",        options.unit                           },
        {"place",       static_cast<double>(options.place)     },
        {"planeAcross", options.normal                         },
        {"plane",       static_cast<double>(options.plane)     },
        {"cut",         static_cast<int>(options.cut)          },
        {"cutPlace",    options.cutPlace                       }
    };
    for (const FlagRow & row : FLAGS)
        json[QLatin1String(row.name)] = options.*row.member;
    if (options.threshold)
        json["threshold"] = *options.threshold;
    return json;
}

HygResultLayout HygResultLayout::fromJson(const QJsonObject & json) {
    HygResultLayout layout;
    layout.name = json["name"].toString();
    layout.files = texts(json["files"]);
    layout.directories = texts(json["directories"]);
    layout.time = json["time_s"].toDouble();
    Options & options = layout.options;
    options.unit = json["unit"].toString();
    options.place = static_cast<std::size_t>(std::max(0.0, json["place"].toDouble()));
    options.normal = std::clamp(json["planeAcross"].toInt(options.normal), 0, 2);
    options.plane = static_cast<std::size_t>(std::max(0.0, json["plane"].toDouble()));
    options.cut = static_cast<HygResultChart::cut_t>(
        std::clamp<int>(json["cut"].toInt(), HygResultChart::NoCut, HygResultChart::AlongY));
    options.cutPlace = std::clamp(json["cutPlace"].toDouble(options.cutPlace), 0.0, 1.0);
    for (const FlagRow & row : FLAGS)
        options.*row.member = json[QLatin1String(row.name)].toBool(options.*row.member);
    if (json["threshold"].isDouble())
        options.threshold = json["threshold"].toDouble();
    return layout;
}

std::vector<HygResultLayout> HygResultLayout::read(const QString & outputDirectory) {
    std::vector<HygResultLayout> layouts;
    const QString path = fileOf(outputDirectory);
    if (outputDirectory.isEmpty() || !QFileInfo(path).isFile())
        return layouts;
    try {
        const auto content = QByteArray::fromStdString(KOR::readFile(path.toStdString(), MAX_SIZE));
        const QJsonArray list = QJsonDocument::fromJson(content).array();
        for (int i = 0; i < std::min<int>(list.size(), MAX_LAYOUTS); ++i)
            if (HygResultLayout layout = fromJson(list[i].toObject()); !layout.name.isEmpty())
                layouts.push_back(std::move(layout));
    } catch (const KOR::Exception & ex) {
        ex.report();
    }
    return layouts;
}

void HygResultLayout::write(const QString & outputDirectory, const std::vector<HygResultLayout> & layouts) {
    QJsonArray list;
    for (const HygResultLayout & layout : layouts)
        list.append(layout.toJson());
    KOR::Path(outputDirectory.toStdString()).makePath();
    KOR::writeFile(fileOf(outputDirectory).toStdString(), QJsonDocument(list).toJson().toStdString());
}
