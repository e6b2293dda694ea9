#pragma once

#include "HygSettings.h"
#include "document/HygProjectHandler.h"

#include <DATAIO/DataWriter.h>

#include <KOR/FileIO.h>
#include <KOR/MessageHandler.h>

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using DATAIO::DataHeader;

/// A project with results: a profile of 4 cells, a plane of 3 x 2 cells and fluxes at its sides.
class HygResultsTest : public testing::Test {
protected:
    HygResultsTest() {
        KOR::MessageHandlerRegistry::instance().setMessageHandler(&m_quiet);
        EXPECT_TRUE(QDir(m_directory.path()).mkpath("wall/results"));
        EXPECT_TRUE(m_projects.createProject(m_directory.filePath("wall.h6p")));
    }
    ~HygResultsTest() override { KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr); }

    QString results(const QString & name) const { return m_directory.filePath("wall/results/") + name; }

    /// Writes a geometry of cells of 10, 20, 30... mm and returns it.
    DATAIO::GeoFile makeGeometry(const char * name, std::size_t nx, std::size_t ny) {
        DATAIO::GeoFile geometry;
        geometry.m_materials = {
            {1, 0xff336699, "Brick"},
            {2, 0xff999999, "Wool" }
        };
        std::vector<double> x, y;
        for (std::size_t i = 0; i < nx; ++i)
            x.push_back(0.01 * static_cast<double>(i + 1));
        for (std::size_t j = 0; j < ny; ++j)
            y.push_back(0.01 * static_cast<double>(j + 1));
        geometry.setGrid({x, y, {1.0}});
        std::vector<std::uint32_t> materials(nx * ny, 1);
        materials.back() = 2;
        geometry.makeTables(materials);
        geometry.write(results(name).toStdString(), true);
        return geometry;
    }
    DataHeader header(const char * geometry, const char * keyword, const char * unit) const {
        DataHeader h;
        h.geoFile = geometry;
        h.geoFileHash = DATAIO::GeoFile::hash(KOR::readFile(results(geometry).toStdString(), 1 << 20));
        h.quantity = keyword;
        h.quantityKeyword = keyword;
        h.valueUnit = unit;
        h.timeUnit = "h";
        h.startYear = 2000;
        h.created = "2026-01-31 12:00:00";
        return h;
    }
    /// Writes records whose values are f(hour, value).
    template <typename Function>
    QString write(const char * name, DataHeader h, int hours, const Function & f, bool binary = true) {
        DATAIO::DataWriter writer(results(name).toStdString(), h, binary);
        for (int t = 0; t < hours; ++t) {
            std::vector<double> values;
            for (std::size_t i = 0; i < h.valueCount(); ++i)
                values.push_back(f(t, static_cast<double>(i)));
            writer.append(t, values);
        }
        writer.flush();
        return results(name);
    }
    QString writeProfile(const char * name, const char * keyword, const char * unit, double first) {
        makeGeometry("profile.h6g", 4, 1);
        DataHeader h = header("profile.h6g", keyword, unit);
        h.indices = {0, 1, 2, 3};
        return write(name, h, 10, [first](double t, double i) { return first + t + 0.1 * i; });
    }
    QString writeField() {
        makeGeometry("plane.h6g", 3, 2);
        DataHeader h = header("plane.h6g", "Temperature", "C");
        h.indices = {0, 1, 2, 3, 4, 5};
        return write("Field.h6b", h, 10, [](double t, double i) { return t + i; });
    }

    struct : KOR::MessageHandler {
        void writeConsole(const std::string &, int, bool) override {}
    } m_quiet;
    QTemporaryDir m_directory;
    HygSettings m_settings{"KOR", "HygResultsTest"};
    HygProjectHandler m_projects;
};
