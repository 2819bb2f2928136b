// The German and English tables are data that nobody compiles against: what the program asks
// for must really be in them, in both languages, and complete.
#include "FKRLocalizationHelper.h"

#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <string>

using namespace Qt::Literals::StringLiterals;

inline void PrintTo(const QString &text, std::ostream *out) { *out << '"' << text.toStdString() << '"'; }
namespace {
struct Eintrag { QString text; bool fertig = true; };
using Tabelle = QMap<QString, Eintrag>;

Tabelle leseTabelle(const char *name)
{
    Tabelle tabelle;
    QFile file(QStringLiteral(VELMORA_SOURCE_DIR "/resources/translations/") + QLatin1String(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    QXmlStreamReader xml(&file);
    QString context, source;
    while (xml.readNext() != QXmlStreamReader::EndDocument && !xml.hasError()) {
        if (xml.isStartElement() && xml.name() == u"name")
            context = xml.readElementText();
        else if (xml.isStartElement() && xml.name() == u"source")
            source = xml.readElementText();
        else if (xml.isStartElement() && xml.name() == u"translation") {
            EXPECT_EQ(context, FKRLocalizationHelper::kContext) << source.toStdString();
            EXPECT_FALSE(tabelle.contains(source)) << "twice: " << source.toStdString();
            const bool fertig = xml.attributes().value(QStringLiteral("type")).isEmpty();
            tabelle.insert(source, {xml.readElementText(), fertig});
        }
    }
    EXPECT_FALSE(xml.hasError()) << name << ": " << xml.errorString().toStdString();
    return tabelle;
}

const Tabelle &deutsch() { static const Tabelle tabelle = leseTabelle("velmora_de.ts"); return tabelle; }
const Tabelle &englisch() { static const Tabelle tabelle = leseTabelle("velmora_en.ts"); return tabelle; }

// String literals handed to one of the lookups: the key of lokalisierterText, hauptTabellenText,
// tr and QT_TR_NOOP, or the second argument after the "Velmora" context. The literal may be plain,
// u"..."_s, u8"...", or wrapped in QStringLiteral / QLatin1String / QString::fromUtf8.
QSet<QString> schluesselIn(const QString &code)
{
    static const QRegularExpression aufruf(
        uR"re((?:\b(?:lokalisierterText|hauptTabellenText|tr|QT_TR_NOOP)\s*\()re"
        uR"re(|\b(?:QCoreApplication::translate|QT_TRANSLATE_NOOP)\s*\(\s*)re"
        uR"re((?:"Velmora"|(?:FKRLocalizationHelper::)?kContext)\s*,))re"
        uR"re(\s*(?:(?:QStringLiteral|QLatin1String|QLatin1StringView|QString::fromUtf8)\s*\(\s*)?)re"
        uR"re((?:u8|u|L)?"((?:[^"\\\n]|\\.)*)")re"_s);
    QSet<QString> keys;
    for (auto it = aufruf.globalMatch(code); it.hasNext();)
        keys.insert(it.next().captured(1).replace(u"\\\""_s, u"\""_s).replace(u"\\\\"_s, u"\\"_s));
    return keys;
}

QSet<QString> platzhalter(const QString &text)
{
    static const QRegularExpression nummer(uR"(%\d+)"_s);
    QSet<QString> found;
    for (auto it = nummer.globalMatch(text); it.hasNext();)
        found.insert(it.next().captured());
    return found;
}

std::string s(const QString &text) { return text.toStdString(); }

TEST(TranslationTables, EveryKeyTheCodeUsesIsInBothTables)
{
    QDirIterator it(QStringLiteral(VELMORA_SOURCE_DIR "/src"), {u"*.cpp"_s, u"*.h"_s}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QString &key : schluesselIn(QString::fromUtf8(file.readAll()))) {
            EXPECT_TRUE(deutsch().contains(key)) << "German table lacks \"" << s(key) << "\" used in " << s(it.filePath());
            EXPECT_TRUE(englisch().contains(key)) << "English table lacks \"" << s(key) << "\" used in " << s(it.filePath());
        }
    }
}

TEST(TranslationTables, BothTablesHaveTheSameFinishedKeysWithTheBlanksAndPlaceholdersTheirCallersRelyOn)
{
    static const QRegularExpression printfStil(uR"(%@|%\d*\$?[sd])"_s);
    QSet<QString> nurDeutsch(deutsch().keyBegin(), deutsch().keyEnd()), nurEnglisch;
    for (const auto &[tabelle, name] : {std::pair{&deutsch(), "German"}, std::pair{&englisch(), "English"}}) {
        for (auto it = tabelle->cbegin(); it != tabelle->cend(); ++it) {
            const QString &key = it.key(), &text = it->text;
            SCOPED_TRACE(std::string(name) + ": " + s(key) + " -> \"" + s(text) + '"');
            EXPECT_TRUE(it->fertig);
            EXPECT_FALSE(text.trimmed().isEmpty());
            // Keys are joined with numbers, dates and names without added characters.
            EXPECT_TRUE(!key.startsWith(u' ') || text.startsWith(u' '));
            EXPECT_TRUE(!key.endsWith(u' ') || text.endsWith(u' '));
            EXPECT_FALSE(printfStil.match(text).hasMatch());
            if (tabelle == &englisch()) {
                if (!nurDeutsch.remove(key))
                    nurEnglisch << key;
                EXPECT_EQ(platzhalter(deutsch().value(key).text), platzhalter(text));
            }
        }
    }
    EXPECT_EQ(nurDeutsch, QSet<QString>{u"PRUEFTEXT_NUR_DEUTSCH"_s}) << s(nurDeutsch.values().join(u" | "));
    EXPECT_TRUE(nurEnglisch.isEmpty()) << s(nurEnglisch.values().join(u" | "));
}

} // namespace
