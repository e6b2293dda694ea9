#pragma once

#include <QtExt/Settings.h>

#include <QByteArray>

/// The editor's settings: those of the widget library and its own, by the names of their keys.
class HygSettings : public QtExt::Settings {
public:
    /// The directory table. All but the first and the last lie below the installation directory.
    enum directory_t {
        DIR_INSTALLATION,
        DIR_MATERIALS,
        DIR_CLIMATE,
        DIR_EXAMPLES,
        DIR_TEMPLATES,
        DIR_USER_DATA,
        NUM_DIRECTORIES
    };

    /// The texts per language that hold our web pages.
    static constexpr const char * HELP_ADDRESS = "HelpAddress";
    static constexpr const char * FORUM_ADDRESS = "ForumAddress";
    static constexpr const char * CHANGELOG_ADDRESS = "ChangelogAddress";
    static constexpr const char * DOCUMENTATION_ADDRESS = "DocumentationAddress";

    HygSettings(const QString & organisation, const QString & application);

    /// The settings constructed last. Throws "No settings object exists." ("[Settings::instance]").
    static HygSettings & instance();

    /// The installation directory, unless it is set already, is that of the executable.
    void setDefaults() override;

    QVariant defaultValue(const QString & key) const override;

    /// Sets the directories below it too, and the external programs that still have their default.
    void setInstallationDirectory(const QString & path);
    using QtExt::Settings::directory;
    QString directory(directory_t directory) const;

    QString m_initialView; ///< of this run: name of a view in HygViewTable
    bool m_constructionViewGridLinesVisible = false;
    bool m_constructionViewEquidistantModeEnabled = false;
    QString m_lastImportDirectory;
    QString m_lastFileOpenDirectory;
    bool m_useModernSolver = false;
    bool m_clearResultDirBeforeStart = false;
    int m_numParallelThreads = 0; ///< 0 leaves the number to the solver
    QString m_npWizardLastUsedClimateLocation;
    QString m_kurvioExecutable;
    QString m_klimeditExecutable;
    QColor m_colorSelectedElements;
    QColor m_colorHighlightedElements;
    unsigned int m_fontPointSize = 0; ///< 0 keeps the system's
    QStringList m_frequentlyUsedQuantities;
    QStringList m_favouriteMaterials; ///< file names; those of the user's begin with "user/"
    bool m_writeCompleteProject = false;
    bool m_sketch2DGridVisible = false;
    QColor m_sketch2DGridColor;
    QColor m_sketch2DBackgroundColor;
    int m_sketch2DLabelFontSize = 0; ///< points
    QString m_sketch2DLabelUnit;
    int m_sketch2DLineWidth = 0;        ///< pixels
    unsigned int m_basicLengthUnit = 0; ///< index of a KOR::Unit
    QByteArray m_mainWindowGeometry;
    QByteArray m_mainWindowState;

    /// Program that packs projects; not stored.
    QString m_archiver;
};
