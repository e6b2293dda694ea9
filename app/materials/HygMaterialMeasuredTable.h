#pragma once

#include "materials/HygMaterialRowModel.h"

class HygMaterialDocument;

/// The measured data of a material as they stand in its file, a row a line. Lines that nobody edits stay to the letter.
class HygMaterialMeasuredTable : public HygMaterialRowModel {
    Q_OBJECT
public:
    enum column_t { KeywordColumn, ValueColumn, UnitColumn, NUM_COLUMNS };

    explicit HygMaterialMeasuredTable(HygMaterialDocument & document, QObject * parent = nullptr);

    void insertAfter(int row) override;
    void removeEntries(const std::vector<int> & rows) override;
    QString text() const override;
    void setText(const QString & text) override;

    int rowCount(const QModelIndex & parent = {}) const override;
    int columnCount(const QModelIndex & parent = {}) const override;
    QVariant data(const QModelIndex & index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex & index) const override;
    bool setData(const QModelIndex & index, const QVariant & value, int role = Qt::EditRole) override;

private:
    const std::vector<std::string> & lines() const;
    void takeOver();
    void change(const QString & text, std::vector<std::string> lines);

    HygMaterialDocument & m_document;
    int m_rows = 0; ///< that the views know of
};
