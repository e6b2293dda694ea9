// A window whose language is switched shows what one shows that began in that language.
#include "HygMainWindow.h"
#include "HygSettings.h"
#include "construction/HygConstructionView.h"
#include "document/HygProjectHandler.h"

#include <QtExt/LanguageHandler.h>

#include <KOR/MessageHandler.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QDir>
#include <QDockWidget>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

#include <set>

namespace {

class LanguageSwitch : public testing::Test {
protected:
    LanguageSwitch() {
        KOR::MessageHandlerRegistry::instance().setMessageHandler(&m_quiet);
        m_settings.setDefaults();
        m_settings.setInstallationDirectory(m_directory.path());
        m_settings.setDirectory("UserData", m_directory.filePath("user"));
        for (const char * folder : {"examples", "DB_materials"}) {
            QDir().mkpath(m_directory.filePath(folder));
            for (const QFileInfo & file : QDir(QStringLiteral(HYG_SOURCE_DIR "/") + folder)
                                              .entryInfoList({"*brick*", "Brick*", "Window*"}, QDir::Files))
                QFile::copy(file.filePath(), m_directory.filePath(folder) + '/' + file.fileName());
        }
    }
    ~LanguageSwitch() override {
        m_languages.installTranslator("en");
        QLocale::setDefault(QLocale::c());
        KOR::MessageHandlerRegistry::instance().setMessageHandler(nullptr);
    }

    static void add(std::set<QString> & texts, const QString & where, const QString & text) {
        if (!text.trimmed().isEmpty())
            texts.insert(where + ": " + text);
    }
    static void addModel(std::set<QString> & texts, const QString & where, const QAbstractItemModel & model,
                         const QModelIndex & parent = {}) {
        for (int column = 0; column < model.columnCount(parent); ++column) {
            add(texts, where + " header", model.headerData(column, Qt::Horizontal).toString());
            add(texts, where + " header tip", model.headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString());
        }
        for (int row = 0; row < std::min(model.rowCount(parent), 60); ++row)
            for (int column = 0; column < model.columnCount(parent); ++column) {
                const QModelIndex index = model.index(row, column, parent);
                static const QRegularExpression TIME(QStringLiteral("^\\d\\d:\\d\\d:\\d\\d$"));
                add(texts, where, index.data().toString().remove(TIME));
                add(texts, where + " tip", index.data(Qt::ToolTipRole).toString());
                if (column == 0)
                    addModel(texts, where, model, index);
            }
    }
    /// All that can be read in a widget and below it, each with its place.
    static std::set<QString> textsOf(QWidget & root) {
        std::set<QString> texts;
        QList<QWidget *> widgets = root.findChildren<QWidget *>();
        widgets.append(&root);
        for (QWidget * widget : widgets) {
            const QString name = widget->objectName();
            if (name.startsWith("qt_") || name.startsWith("Scroll")) // of Qt, which names them once
                continue;
            QString where = QString::fromLatin1(widget->metaObject()->className()) + ' ' + widget->objectName();
            if (widget->objectName().isEmpty() && widget->parentWidget() != nullptr)
                where += "in " + widget->parentWidget()->objectName();
            add(texts, where + " tip", widget->toolTip());
            add(texts, where + " accessible", widget->accessibleName());
            for (const char * property : {"text", "title", "placeholderText", "windowTitle", "specialValueText"})
                if (widget->metaObject()->indexOfProperty(property) >= 0)
                    add(texts, where + ' ' + property, widget->property(property).toString());
            if (const auto * tabs = qobject_cast<QTabWidget *>(widget))
                for (int n = 0; n < tabs->count(); ++n)
                    add(texts, where + " tab", tabs->tabText(n) + '|' + tabs->tabToolTip(n));
            if (const auto * box = qobject_cast<QComboBox *>(widget))
                for (int n = 0; n < box->count(); ++n)
                    add(texts, where + " item", box->itemText(n));
            if (const auto * view = qobject_cast<QAbstractItemView *>(widget);
                view != nullptr && qobject_cast<QHeaderView *>(widget) == nullptr && view->model() != nullptr)
                addModel(texts, where, *view->model());
            for (const QAction * action : widget->actions())
                add(texts, where + " action " + action->objectName(),
                    action->text() + '|' + action->toolTip() + '|' + action->statusTip());
        }
        return texts;
    }

    struct Shown {
        HygLogModel messages;
        std::unique_ptr<HygMainWindow> window;
    };
    /// A window with a project, in which all views have been seen.
    std::unique_ptr<Shown> show(const QString & project) {
        auto shown = std::make_unique<Shown>();
        shown->messages.append(KOR::MSG_WARNING, "Something");
        shown->window = std::make_unique<HygMainWindow>(m_settings, m_languages, shown->messages);
        HygMainWindow & window = *shown->window;
        window.show();
        window.findChild<QDockWidget *>("logDock")->show();
        EXPECT_TRUE(window.openProject(m_directory.filePath("examples/" + project)));
        for (const auto view : {HygViewTable::Materials, HygViewTable::Construction})
            window.showView(view);
        window.findChild<HygConstructionView *>()->canvas().select({
            {0, 0, 0, 1, 2, 0}
        });
        settle();
        return shown;
    }
    static void settle() { QTest::qWait(1500); } // hints and the database are looked for in threads

    struct : KOR::MessageHandler {
        void writeConsole(const std::string &, int, bool) override {}
    } m_quiet;
    QTemporaryDir m_directory;
    HygSettings m_settings{"KOR", "Hygrion language test"};
    QtExt::LanguageHandler m_languages{QStringLiteral(HYG_BINARY_DIR "/translations"), "hygrion"};
};

class LanguageSwitchOf : public LanguageSwitch, public testing::WithParamInterface<const char *> {};

TEST_P(LanguageSwitchOf, AViewLeavesNothingInTheFormerLanguage) {
    m_languages.installTranslator("de");
    m_settings.m_langId = "de";
    auto german = show(GetParam());
    const std::vector<const char *> views = {"constructionView", "HygMaterialView", "logDock", "HygOutputsView",
                                             "HygStartView"};
    const auto viewOf = [](HygMainWindow & window, const char * name) -> QWidget & {
        for (QWidget * widget : window.findChildren<QWidget *>())
            if (widget->objectName() == QLatin1String(name) || qstrcmp(widget->metaObject()->className(), name) == 0)
                return *widget;
        throw std::runtime_error(std::string("no view ") + name);
    };
    std::map<std::string, std::set<QString>> expected;
    for (const char * name : views)
        expected[name] = textsOf(viewOf(*german->window, name));
    german.reset();
    m_languages.installTranslator("en");
    m_settings.m_langId = "en";
    auto switched = show(GetParam());
    for (QAction * action : switched->window->findChildren<QAction *>())
        if (action->actionGroup() != nullptr && action->data() == "de")
            action->trigger();
    settle();
    for (const char * name : views) {
        SCOPED_TRACE(name);
        const std::set<QString> texts = textsOf(viewOf(*switched->window, name));
        EXPECT_GT(texts.size(), 10u);
        for (const QString & text : texts)
            EXPECT_TRUE(expected[name].count(text) > 0) << "still: " << text.toStdString();
        for (const QString & text : expected[name])
            EXPECT_TRUE(texts.count(text) > 0) << "not yet: " << text.toStdString();
    }
    // Lengths with the decimal mark of the language, in the drawing as in the tables.
    const HygConstructionScene & scene = switched->window->findChild<HygConstructionView *>()->canvas().scene();
    EXPECT_EQ(scene.lengthNumber(0.11188), "111,88");
    for (const HygConstructionScene::Mark & mark : scene.marks)
        EXPECT_FALSE(mark.text.contains("interface")) << mark.text.toStdString();
    EXPECT_TRUE(scene.cardOf(0, 0).contains("Spalte")) << scene.cardOf(0, 0).toStdString();
}
INSTANTIATE_TEST_SUITE_P(Projects, LanguageSwitchOf, testing::Values("Brick wall.h6p", "Window reveal.h6p"));

} // namespace
