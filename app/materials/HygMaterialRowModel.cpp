#include "materials/HygMaterialRowModel.h"

#include <KOR/Numbers.h>

#include <QLocale>
#include <QStringList>

QString HygMaterialRowModel::shown(double value) {
    return QString::fromStdString(KOR::toString(value)).replace(QLatin1Char('.'), QLocale().decimalPoint());
}

std::optional<double> HygMaterialRowModel::number(QString text) {
    return KOR::parseDouble(text.trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toStdString());
}

QStringList HygMaterialRowModel::parts(const QString & line) {
    QStringList found;
    int begin = -1;
    for (int i = 0; i <= line.size(); ++i) {
        const bool isSeparator = i == line.size() || line[i].isSpace() || line[i] == QLatin1Char(';');
        if (!isSeparator && begin < 0)
            begin = i;
        if (isSeparator && begin >= 0)
            found << line.mid(std::exchange(begin, -1), i - begin);
        if (isSeparator)
            begin = -1;
    }
    return found;
}
