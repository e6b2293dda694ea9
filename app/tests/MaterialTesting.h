#pragma once

#include "HygSettings.h"
#include "materials/HygMaterialDB.h"
#include "materials/HygMaterialEditor.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

constexpr const char * BRICK = "clay_brick_solid_108.m6";

/// A database of two built-in materials and none of the user's.
class HygMaterialEditorTest : public testing::Test {
protected:
    HygMaterialEditorTest()
        : m_settings("KOR", QString::fromLatin1(testing::UnitTest::GetInstance()->current_test_info()->name())) {
        m_settings.setDefaults();
        m_settings.m_langId = "en";
        QDir(m_home.path()).mkdir("built in");
        for (const char * file : {BRICK, "sand_lime_brick_107.m6"})
            QFile::copy(QStringLiteral(HYG_SOURCE_DIR "/DB_materials/") + file,
                        path(QStringLiteral("built in/") + file));
        m_database = std::make_shared<HygMaterialDB>(
            HygThreadMaterialDBUpdater::Places{path("built in"), path("user"), path("cache")}, "en");
    }
    QString path(const QString & name) const { return m_home.filePath(name); }
    MM::Material read(const QString & file) const {
        MM::Material material;
        material.read(file.toStdString());
        return material;
    }
    std::unique_ptr<HygMaterialEditor> editorOf(const QString & file) const {
        auto editor = std::make_unique<HygMaterialEditor>(*m_database, read(file));
        editor->show();
        return editor;
    }
    QString copy() const { return m_database->copyToUser(path(QStringLiteral("built in/") + BRICK)); }
    void waitForScan() const {
        const auto isTakenOver = [&] {
            const HygMaterialDBScanPtr scan = m_database->updater().result();
            return !m_database->isScanning() && scan &&
                   m_database->model().rowCount() == static_cast<int>(scan->entries.size());
        };
        EXPECT_TRUE(QTest::qWaitFor(isTakenOver, 20000));
        QTest::qWait(20);
    }

    /// Answers the modal windows that come, in order; a test that fails is better than one that hangs.
    template <typename Reply> void answer(std::vector<Reply> replies) {
        auto * timer = new QTimer(&m_timers);
        QObject::connect(timer, &QTimer::timeout,
                         [this, replies, next = std::size_t{0}, last = static_cast<QWidget *>(nullptr)]() mutable {
                             QWidget * window = QApplication::activeModalWidget();
                             if (window == nullptr || window == last || window->objectName() == "backgroundWork")
                                 return;
                             last = window;
                             if (auto * box = qobject_cast<QMessageBox *>(window))
                                 m_asked << box->text();
                             else
                                 m_asked << window->objectName();
                             if (next < replies.size())
                                 replies[next++](*window);
                             else
                                 static_cast<QDialog *>(window)->reject();
                         });
        timer->start(10);
    }
    using Reply = std::function<void(QWidget &)>;
    static Reply press(QMessageBox::StandardButton button) {
        return [button](QWidget & box) { static_cast<QMessageBox &>(box).button(button)->click(); };
    }

    QTemporaryDir m_home;
    HygSettings m_settings;
    std::shared_ptr<HygMaterialDB> m_database;
    QStringList m_asked;
    QObject m_timers;
};
