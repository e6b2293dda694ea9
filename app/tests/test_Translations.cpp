#include <QFile>
#include <QRegularExpression>
#include <QTranslator>
#include <QXmlStreamReader>

namespace {

/// The placeholders of a text, sorted: %1, %2, %n.
QStringList placeholders(const QString & text) {
    static const QRegularExpression PLACEHOLDER(QStringLiteral("%L?(\\d+|n)"));
    QStringList found;
    for (auto match = PLACEHOLDER.globalMatch(text); match.hasNext();)
        found << match.next().captured();
    found.removeDuplicates();
    found.sort();
    return found;
}

TEST(Translations, GermanIsCompleteAndKeepsThePlaceholders) {
    QFile file(HYG_SOURCE_DIR "/translations/hygrion_de.ts");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&file);
    QString source;
    int count = 0;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("source")) {
            source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            ++count;
            SCOPED_TRACE(source.toStdString());
            EXPECT_NE(xml.attributes().value("type"), QLatin1String("unfinished"));
            const QString german = xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
            EXPECT_FALSE(german.isEmpty());
            EXPECT_EQ(placeholders(german), placeholders(source));
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_GT(count, 100);
}

TEST(Translations, FilesLieBesideTheExecutables) {
    QTranslator german;
    ASSERT_TRUE(german.load("hygrion_de", HYG_BINARY_DIR "/translations"));
    EXPECT_EQ(german.translate("HygPreferencesDialog", "Preferences"), "Einstellungen");
    QTranslator english;
    EXPECT_TRUE(english.load("hygrion_en", HYG_BINARY_DIR "/translations"));
}

} // namespace
