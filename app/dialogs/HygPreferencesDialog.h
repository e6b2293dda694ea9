#pragma once

#include <QtExt/Settings.h>

#include <QDialog>
#include <QStringList>

#include <array>
#include <vector>

class HygSettings;
class QDialogButtonBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QListWidget;
class QScrollArea;

namespace HygPreferences {
struct Row;
}
namespace QtExt {
class LanguageHandler;
}

/// Edits all settings, built from one table: groups at the left, a search field above. Every field bears its key as
/// objectName. Language, theme and font size change at once and are taken back on Cancel; everything else is taken over
/// and written with OK or Apply.
class HygPreferencesDialog : public QDialog {
    Q_OBJECT
public:
    /// \param languages exchanges the translators; without one a new language holds from the next start
    HygPreferencesDialog(HygSettings & settings, QtExt::LanguageHandler * languages, QWidget * parent = nullptr);

    /// Shows only the settings whose texts or keys hold all words; an empty text shows the group chosen.
    void setFilter(const QString & text);

    void accept() override;
    void reject() override;

signals:
    /// Keys whose values have been taken over into the settings.
    void settingsChanged(const QStringList & keys);

protected:
    void changeEvent(QEvent * event) override;
    void keyPressEvent(QKeyEvent * event) override;
    bool eventFilter(QObject * watched, QEvent * event) override;

private:
    struct Field {
        const HygPreferences::Row * row;
        QWidget * editor;    ///< objectName is the key
        QWidget * container; ///< editor with its buttons
        QLabel * label;      ///< nullptr when the editor is labelled itself
        QVariant initial;    ///< value before editing
    };
    struct Section {
        QWidget * widget;
        QLabel * title;
        QGridLayout * grid;
    };

    void buildSections();
    void addField(const HygPreferences::Row & row);
    QWidget * makeEditor(const HygPreferences::Row & row);
    QWidget * withBrowseButton(QLineEdit * edit, const HygPreferences::Row & row);
    QVariant fieldValue(const char * key) const;
    void forgetAll();

    void load();
    void loadQuestions();
    void restoreDefaults();
    bool apply();
    void applyQuestions(QStringList & changed);
    void applyLook();
    void showLook(const QString & theme, unsigned int fontPointSize, const QString & language);

    void retranslate();
    void retranslateField(const Field & field);
    void fillGroups();
    bool matches(const Field & field) const;
    void showMatches();
    void showGroup();

    HygSettings & m_settings;
    QtExt::LanguageHandler * m_languages;
    QString m_languageBefore; ///< installed when the dialog was opened
    std::vector<Field> m_fields;
    std::vector<Section> m_sections;
    QStringList m_words; ///< of the search
    bool m_isLoading = false;
    QLineEdit * m_search;
    QListWidget * m_groups;
    QScrollArea * m_scroll;
    QLabel * m_nothingFound;
    QDialogButtonBox * m_buttons;
    QAction * m_searchIcon;
};
