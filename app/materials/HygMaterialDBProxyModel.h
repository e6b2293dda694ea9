#pragma once

#include <QRegularExpression>
#include <QSortFilterProxyModel>

#include <vector>

/// Narrows the materials by category, by words and by marks, and colours the rows.
class HygMaterialDBProxyModel : public QSortFilterProxyModel {
    Q_OBJECT
public:
    /// One past the last category: no category filter.
    static constexpr int ALL_CATEGORIES = 14;
    static constexpr const char * COMPARED_COLOR = "#ffe49d"; ///< background of rows under comparison
    static constexpr const char * USER_COLOR = "#fff4b8";     ///< background of user materials
    static constexpr const char * TEXT_COLOR = "#1d2430";     ///< of the text on them

    enum mark_t { Favourites = 1, UserMaterials = 2, Problems = 4 };

    explicit HygMaterialDBProxyModel(QObject * parent = nullptr);

    void setCategory(int category);
    /// Each word is a wildcard pattern ('*', '?', '[a-f]'), whatever its case, that name or producer must hold.
    void setSearch(const QString & text);
    /// Shows only rows with one of these marks; all without marks. \param marks bits of mark_t
    void setMarks(int marks);

    int category() const { return m_category; }
    int marks() const { return m_marks; }

    QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;

protected:
    bool filterAcceptsRow(int row, const QModelIndex & parent) const override;

private:
    struct Word {
        QString text; ///< looked for as it stands, unless it holds a wildcard
        QRegularExpression pattern;
        bool isPattern = false;
        bool isIn(const QString & text) const;
    };

    std::vector<Word> m_words;
    int m_category = ALL_CATEGORIES;
    int m_marks = 0;
};
