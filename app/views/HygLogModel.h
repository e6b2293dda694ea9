#pragma once

#include <QAbstractTableModel>
#include <QDateTime>
#include <QTimer>

#include <array>
#include <deque>
#include <vector>

/// The messages of this run for the log view: the newest MAX_ROWS, oldest first.
/// Messages are collected for some milliseconds and shown together, so that a flood does not stop the editor.
class HygLogModel : public QAbstractTableModel {
    Q_OBJECT
public:
    static constexpr int MAX_ROWS = 10000;
    static constexpr int MAX_TEXT = 20000; ///< characters kept of one message
    enum column_t { TimeColumn, TypeColumn, TextColumn, NUM_COLUMNS };
    enum role_t { TypeRole = Qt::UserRole, TextRole };
    /// What the user tells apart; progress and information are one.
    enum kind_t { Information, Warning, Error, Debug, NUM_KINDS };

    explicit HygLogModel(QObject * parent = nullptr);

    /// Takes one message; \p type is one of KOR::msg_t.
    void append(int type, const QString & text);
    /// Shows at once what was collected.
    void flush();
    void clear();

    /// Messages of a kind that are held.
    int count(kind_t kind) const { return m_counts[kind]; }
    static kind_t kindOf(int type);
    /// "Warning" in the user's language.
    static QString nameOf(kind_t kind);
    static QString iconOf(kind_t kind);
    /// Colour of a kind's text, readable on the base of the palette in force.
    static QColor colourOf(kind_t kind);
    /// One line as it stands in a log file: time, label, text.
    QString line(int row) const;
    /// Translated headings and names are to be read anew.
    void retranslate();

    int rowCount(const QModelIndex & parent = {}) const override;
    int columnCount(const QModelIndex & parent = {}) const override;
    QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

signals:
    void countsChanged();

private:
    struct Entry {
        QDateTime time;
        int type;
        QString told; ///< as the program told it
        QString text; ///< in the language of the user
    };

    std::deque<Entry> m_entries;
    std::deque<Entry> m_waiting;
    std::array<int, NUM_KINDS> m_counts{};
    QTimer m_timer;
};
