#pragma once

#include "materials/HygMaterialDBEntry.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <set>

/// The materials of both databases, a row a file; files that cannot be read have a row that says why.
class HygMaterialDBTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum column_t {
        IdColumn,
        MarkColumn, ///< favourite, or what is wrong with the file
        NameColumn,
        CategoryColumn,
        ProducerColumn,
        RhoColumn,
        CeColumn,
        LambdaColumn,
        MewColumn,
        W80Column,
        WSatColumn,
        AwColumn,
        PathColumn,
        NUM_COLUMNS
    };
    enum role_t {
        Category1Role = Qt::UserRole, ///< int, MM::MaterialCategory::CategoryID
        Category2Role,
        Category3Role,
        SortRole,    ///< numbers as numbers
        PathRole,    ///< absolute path
        UserRole,    ///< bool: from the user's directory
        ProblemRole, ///< why the file cannot be read
        DoubleRole,  ///< bool: other files have the same ID
        FavouriteRole,
        ComparedRole ///< bool
    };
    /// What other widgets accept as a material that is dropped on them: its path as UTF-8.
    static constexpr const char * MIME_TYPE = "application/x-hygrion-material";

    explicit HygMaterialDBTableModel(QObject * parent = nullptr);

    /// Shows another scan; rows of files that stay keep their place.
    void setScan(HygMaterialDBScanPtr scan);
    /// The language of names and producers ("de").
    void setLanguage(const QString & language);
    void setFavourites(const QStringList & fileNames);
    /// Marks the rows that are being compared.
    void setCompared(const QStringList & paths);

    const HygMaterialDBEntry & entry(int row) const { return m_rows[static_cast<std::size_t>(row)].entry; }
    /// -1 if there is none.
    int rowOf(const QString & path) const;
    bool isDouble(int row) const { return m_rows[static_cast<std::size_t>(row)].isDouble; }
    bool isFavourite(int row) const { return m_rows[static_cast<std::size_t>(row)].isFavourite; }
    int countProblems() const;
    /// The name in the model's language, else the file's name.
    const QString & name(int row) const { return m_rows[static_cast<std::size_t>(row)].name; }
    const QString & producer(int row) const { return m_rows[static_cast<std::size_t>(row)].producer; }
    /// Names under which a favourite is kept: that of the file, which stays when the program moves.
    static QString favouriteName(const HygMaterialDBEntry & entry);

    int rowCount(const QModelIndex & parent = {}) const override;
    int columnCount(const QModelIndex & parent = {}) const override;
    QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex & index) const override;
    QStringList mimeTypes() const override;
    QMimeData * mimeData(const QModelIndexList & indexes) const override;

private:
    struct Row {
        HygMaterialDBEntry entry;
        QString name, producer, category; ///< as shown
        bool isDouble = false;
        bool isFavourite = false;
        bool isCompared = false;
    };

    Row makeRow(const HygMaterialDBEntry & entry) const;
    void translate(Row & row) const;
    void markDoubles();
    void mergeRows(const std::vector<HygMaterialDBEntry> & entries);
    static std::pair<HygMaterialDBEntry::origin_t, const QString &> key(const HygMaterialDBEntry & entry) {
        return {entry.origin, entry.path};
    }
    QVariant display(const Row & row, int column) const;
    QVariant sortKey(const Row & row, int column) const;
    QString toolTip(const Row & row, int column) const;
    QVariant decoration(const Row & row, int column) const;

    std::vector<Row> m_rows; ///< by origin and path
    QString m_language = QStringLiteral("en");
    std::set<QString> m_favourites;
    std::set<QString> m_compared;
};
