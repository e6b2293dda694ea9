#include "HygMessageHandler.h"
#include "views/HygLogFilter.h"
#include "views/HygLogView.h"

#include <QAbstractButton>
#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include <thread>

namespace {

struct Forwarding {
    const char * name;
    int type;
    int level;
    int consoleLevel;
    bool isForwarded;
    friend void PrintTo(const Forwarding & row, std::ostream * out) { *out << row.name; }
};
class MessageForwarding : public testing::TestWithParam<Forwarding> {};

TEST_P(MessageForwarding, DependsOnTheConsoleLevel) {
    HygMessageHandler handler;
    handler.setConsoleLogLevel(GetParam().consoleLevel);
    const QSignalSpy spy(&handler, &HygMessageHandler::msgReceived);
    testing::internal::CaptureStdout();
    handler.msg("\n wet wall \t\n", GetParam().type, "[test]", GetParam().level);
    testing::internal::GetCapturedStdout();
    ASSERT_EQ(spy.size(), GetParam().isForwarded ? 1 : 0);
    if (GetParam().isForwarded) {
        EXPECT_EQ(spy[0][0].toInt(), GetParam().type);
        EXPECT_EQ(spy[0][1].toString(), "wet wall");
    }
}
INSTANTIATE_TEST_SUITE_P(Levels, MessageForwarding,
                         testing::Values(Forwarding{"Below", KOR::MSG_PROGRESS, 1, 2, true},
                                         Forwarding{"Equal", KOR::MSG_WARNING, 2, 2, true},
                                         Forwarding{"Above", KOR::MSG_INFORMATION, 3, 2, false},
                                         Forwarding{"ErrorAbove", KOR::MSG_ERROR, 3, 2, false},
                                         Forwarding{"Debug", KOR::MSG_DEBUG, 0, 0, true}),
                         [](const auto & row) { return std::string(row.param.name); });

TEST(HygMessageHandler, MessagesOfOtherThreadsReachTheLogInThisOne) {
    constexpr int EACH = 200;
    HygMessageHandler handler;
    HygLogModel model;
    QObject::connect(&handler, &HygMessageHandler::msgReceived, &model, &HygLogModel::append);
    testing::internal::CaptureStdout();
    const auto send = [&handler] {
        for (int i = 0; i < EACH; ++i)
            handler.msg("step", KOR::MSG_PROGRESS, "[test]");
    };
    std::thread first(send);
    std::thread second(send);
    first.join();
    second.join();
    testing::internal::GetCapturedStdout();
    EXPECT_EQ(model.rowCount(), 0) << "nothing may touch the model outside its thread";
    EXPECT_TRUE(QTest::qWaitFor([&] { return model.rowCount() == 2 * EACH; }));
}

TEST(HygLogModel, KeepsTheNewestMessagesOnly) {
    HygLogModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto add = [&](int from, int to) {
        for (int i = from; i < to; ++i)
            model.append(i % 2 == 0 ? KOR::MSG_ERROR : KOR::MSG_INFORMATION, QString::number(i));
        model.flush();
    };
    add(0, HygLogModel::MAX_ROWS - 3);
    add(HygLogModel::MAX_ROWS - 3, HygLogModel::MAX_ROWS + 7);
    const auto textOf = [&](int row) { return model.index(row, HygLogModel::TextColumn).data().toString(); };
    EXPECT_EQ(model.rowCount(), HygLogModel::MAX_ROWS);
    EXPECT_EQ(textOf(0), "7");
    EXPECT_EQ(textOf(HygLogModel::MAX_ROWS - 1), QString::number(HygLogModel::MAX_ROWS + 6));
    EXPECT_EQ(model.count(HygLogModel::Error) + model.count(HygLogModel::Information), HygLogModel::MAX_ROWS);

    add(0, 3 * HygLogModel::MAX_ROWS); // more at once than fit
    EXPECT_EQ(model.rowCount(), HygLogModel::MAX_ROWS);
    EXPECT_EQ(textOf(HygLogModel::MAX_ROWS - 1), QString::number(3 * HygLogModel::MAX_ROWS - 1));
    EXPECT_EQ(model.count(HygLogModel::Error), HygLogModel::MAX_ROWS / 2);

    model.append(KOR::MSG_WARNING, QString(10 * HygLogModel::MAX_TEXT, 'x'));
    model.flush();
    EXPECT_LE(textOf(HygLogModel::MAX_ROWS - 1).size(), HygLogModel::MAX_TEXT + 1);
}

/// The view with one message of each type.
class HygLogViewTest : public testing::Test {
protected:
    HygLogViewTest() : m_view(m_model) {
        m_model.append(KOR::MSG_PROGRESS, "Reading project wall.h6p");
        m_model.append(KOR::MSG_WARNING, "Material brick: no vapour data");
        m_model.append(KOR::MSG_ERROR, "Error in XML file, line 12:\nno unit");
        m_model.append(KOR::MSG_DEBUG, "grid of wall: 64 cells");
        m_model.append(42, "Wall of unknown kind");
        m_model.flush();
        m_view.resize(800, 300);
        m_view.show();
    }
    template <typename Widget> Widget & find(const char * name) { return *m_view.findChild<Widget *>(name); }
    QString shown() {
        const QAbstractItemModel & rows = *find<QTableView>("logTable").model();
        QString lines;
        for (int row = 0; row < rows.rowCount(); ++row)
            lines +=
                QString::number(rows.index(row, HygLogModel::TextColumn).data(HygLogModel::TypeRole).toInt()) + ' ';
        return lines.trimmed();
    }

    HygLogModel m_model;
    HygLogView m_view;
};

struct Search {
    const char * switchedOff; ///< object name or nullptr
    const char * text;
    const char * types;
};

TEST_F(HygLogViewTest, SwitchesAndSearchChooseTheMessages) {
    constexpr Search ROWS[] = {
        {nullptr,           "",              "0 2 3 4 42"},
        {"showInformation", "",              "2 3 4"     },
        {"showWarnings",    "",              "0 3 4 42"  },
        {"showErrors",      "",              "0 2 4 42"  },
        {"showDebug",       "",              "0 2 3 42"  },
        {nullptr,           "WALL",          "0 4 42"    },
        {nullptr,           "wall grid",     "4"         },
        {nullptr,           "line no  unit", "3"         }, // across the line break
        {nullptr,           "roof",          ""          },
        {"showDebug",       "wall",          "0 42"      },
    };
    auto & search = find<QLineEdit>("logSearch");
    for (const Search & row : ROWS) {
        if (row.switchedOff)
            QTest::mouseClick(&find<QAbstractButton>(row.switchedOff), Qt::LeftButton);
        QTest::keyClicks(&search, row.text);
        EXPECT_EQ(shown(), row.types) << row.text;
        QTest::keyClick(&search, Qt::Key_Escape);
        EXPECT_EQ(search.text(), "");
        if (row.switchedOff)
            QTest::keyClick(&find<QAbstractButton>(row.switchedOff), Qt::Key_Space);
    }
    EXPECT_EQ(shown(), "0 2 3 4 42");
}

TEST_F(HygLogViewTest, CopiesWhatIsSelectedElseWhatIsShown) {
    QTest::keyClicks(&find<QLineEdit>("logSearch"), "wall");
    QTest::mouseClick(&find<QAbstractButton>("logCopy"), Qt::LeftButton);
    QStringList lines = QGuiApplication::clipboard()->text().split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[0].endsWith("[Progress]\tReading project wall.h6p"));
    EXPECT_TRUE(lines[2].endsWith("[Invalid ]\tWall of unknown kind"));

    auto & table = find<QTableView>("logTable");
    table.selectRow(1);
    QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().endsWith("[Debug   ]\tgrid of wall: 64 cells"));

    QTest::mouseClick(&find<QAbstractButton>("logClear"), Qt::LeftButton);
    EXPECT_EQ(m_model.rowCount(), 0);
    EXPECT_FALSE(find<QAbstractButton>("logClear").isEnabled());
}

TEST_F(HygLogViewTest, FollowsNewMessagesUnlessTheUserScrolledAway) {
    auto & table = find<QTableView>("logTable");
    const auto add = [&] {
        for (int i = 0; i < 100; ++i)
            m_model.append(KOR::MSG_PROGRESS, "more");
        m_model.flush();
        QTest::qWait(1);
    };
    const auto lastVisible = [&] { return table.rowAt(table.viewport()->height() - 2); };
    add();
    EXPECT_EQ(lastVisible(), table.model()->rowCount() - 1);
    table.scrollToTop();
    add();
    EXPECT_EQ(table.rowAt(1), 0);
}

} // namespace
