#include "PdfPruefung.h"

#include <QPainter>
#include <QPdfDocument>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace {

double zahl(const QXmlStreamAttributes &attribute, const char *name)
{
    return attribute.value(QLatin1String(name)).toDouble();
}

// "Key: value" and "key = value" lines into a map; the first separator counts (values may hold
// a web address).
QMap<QString, QString> schluesselWerte(const QByteArray &ausgabe)
{
    QMap<QString, QString> werte;
    for (const QString &zeile : QString::fromUtf8(ausgabe).split(QLatin1Char('\n'))) {
        qsizetype stelle = zeile.indexOf(QLatin1String(" = "));
        qsizetype laenge = 3;
        if (stelle < 0) {
            stelle = zeile.indexOf(QLatin1Char(':'));
            laenge = 1;
        }
        if (stelle > 0)
            werte.insert(zeile.left(stelle).trimmed(), zeile.mid(stelle + laenge).trimmed());
        else if (!zeile.trimmed().isEmpty())
            werte.insert(zeile.trimmed(), QString());
    }
    return werte;
}

} // namespace

QByteArray PdfPruefung::starte(const QString &programm, const QStringList &argumente, QString *fehler)
{
    QProcess prozess;
    prozess.start(programm, argumente);
    if (!prozess.waitForStarted(10000) || !prozess.waitForFinished(60000)) {
        if (fehler)
            *fehler = programm + QStringLiteral(": ") + prozess.errorString();
        return {};
    }
    const QByteArray ausgabe = prozess.readAllStandardOutput();
    // qpdf reports warnings with status 3 and still answers.
    if (prozess.exitStatus() != QProcess::NormalExit || (prozess.exitCode() != 0 && prozess.exitCode() != 3)) {
        if (fehler)
            *fehler = programm + QStringLiteral(" failed: ") + QString::fromUtf8(prozess.readAllStandardError());
        return {};
    }
    return ausgabe;
}

PdfPruefung::PdfPruefung(const QString &pfad)
    : m_pfad(pfad)
{
    const QByteArray xhtml = starte(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pfad, QStringLiteral("-")},
                                    &m_fehler);
    if (m_fehler.isEmpty())
        leseWoerter(xhtml);
}

void PdfPruefung::leseWoerter(const QByteArray &xhtml)
{
    QXmlStreamReader leser(xhtml);
    while (!leser.atEnd()) {
        if (leser.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attribute = leser.attributes();
        if (leser.name() == QLatin1String("page")) {
            m_seiten.append({QSizeF(zahl(attribute, "width"), zahl(attribute, "height")), {}});
        } else if (leser.name() == QLatin1String("word") && !m_seiten.isEmpty()) {
            const QRectF box(QPointF(zahl(attribute, "xMin"), zahl(attribute, "yMin")),
                             QPointF(zahl(attribute, "xMax"), zahl(attribute, "yMax")));
            m_seiten.last().woerter.append({leser.readElementText(), box});
        }
    }
    if (leser.hasError())
        m_fehler = QStringLiteral("pdftotext -bbox: ") + leser.errorString();
    else if (m_seiten.isEmpty())
        m_fehler = QStringLiteral("no pages in ") + m_pfad;
}

const PdfPruefung::Seite &PdfPruefung::seite(int seite) const
{
    if (seite < 1 || seite > m_seiten.size())
        throw std::out_of_range("no page " + std::to_string(seite) + " in " + m_pfad.toStdString());
    return m_seiten.at(seite - 1);
}

QSizeF PdfPruefung::seitenGroesse(int nummer) const
{
    return seite(nummer).groesse;
}

const QList<PdfPruefung::Wort> &PdfPruefung::woerter(int nummer) const
{
    return seite(nummer).woerter;
}

QList<QRectF> PdfPruefung::findeAlle(int nummer, const QString &phrase) const
{
    const QStringList teile = phrase.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    const QList<Wort> &alle = woerter(nummer);
    QList<QRectF> treffer;
    if (teile.isEmpty())
        return treffer;
    for (qsizetype start = 0; start + teile.size() <= alle.size(); ++start) {
        QRectF box;
        bool passt = true;
        for (qsizetype i = 0; i < teile.size() && passt; ++i) {
            passt = alle.at(start + i).text == teile.at(i);
            box = box.isNull() ? alle.at(start + i).box : box.united(alle.at(start + i).box);
        }
        if (passt)
            treffer.append(box);
    }
    return treffer;
}

std::optional<QRectF> PdfPruefung::finde(int nummer, const QString &phrase) const
{
    const QList<QRectF> treffer = findeAlle(nummer, phrase);
    return treffer.isEmpty() ? std::nullopt : std::optional(treffer.first());
}

std::optional<QRectF> PdfPruefung::findeNahe(int nummer, const QString &phrase, double top) const
{
    std::optional<QRectF> naechste;
    for (const QRectF &b : findeAlle(nummer, phrase))
        if (!naechste || std::abs(b.top() - top) < std::abs(naechste->top() - top))
            naechste = b;
    return naechste;
}

QString PdfPruefung::fliesstext() const
{
    QStringList seiten;
    for (int seite = 1; seite <= seitenAnzahl(); ++seite)
        seiten << text(seite);
    return seiten.join(u' ').replace(QChar(QChar::Nbsp), u' ').simplified();
}

QString PdfPruefung::text(int nummer) const
{
    seite(nummer);
    if (!m_seitenTexte) {
        // Pages are separated by form feeds; the last one ends with one too.
        const QString alles = QString::fromUtf8(starte(QStringLiteral("pdftotext"), {m_pfad, QStringLiteral("-")}));
        m_seitenTexte = alles.split(QLatin1Char('\f'));
    }
    return nummer <= m_seitenTexte->size() ? m_seitenTexte->at(nummer - 1).trimmed() : QString();
}

QMap<QString, QString> PdfPruefung::info() const
{
    return schluesselWerte(starte(QStringLiteral("pdfinfo"), {m_pfad}));
}

QMap<QString, QString> PdfPruefung::verschluesselung() const
{
    return schluesselWerte(starte(QStringLiteral("qpdf"), {QStringLiteral("--show-encryption"), m_pfad}));
}

QString PdfPruefung::verschluesselungsEintraege() const
{
    const QString trailer = QString::fromUtf8(
        starte(QStringLiteral("qpdf"), {QStringLiteral("--show-object=trailer"), m_pfad}));
    const QRegularExpressionMatch verweis = QRegularExpression(QStringLiteral("/Encrypt (\\d+) (\\d+) R")).match(trailer);
    if (!verweis.hasMatch())
        return {};
    return QString::fromUtf8(starte(QStringLiteral("qpdf"),
                                    {QStringLiteral("--show-object=%1,%2").arg(verweis.captured(1), verweis.captured(2)),
                                     m_pfad}));
}

QList<QRectF> PdfPruefung::bilder(int nummer) const
{
    seite(nummer);
    // At zoom 1 the converter's pixels are points; it writes the images next to the XML.
    const QTemporaryDir ordner;
    const QString stamm = ordner.filePath(QStringLiteral("seite"));
    const QString seitenNummer = QString::number(nummer);
    starte(QStringLiteral("pdftohtml"), {QStringLiteral("-xml"), QStringLiteral("-q"), QStringLiteral("-zoom"),
                                         QStringLiteral("1"), QStringLiteral("-f"), seitenNummer, QStringLiteral("-l"),
                                         seitenNummer, m_pfad, stamm});
    QFile xml(stamm + QStringLiteral(".xml"));
    QList<QRectF> boxen;
    if (!xml.open(QIODevice::ReadOnly))
        return boxen;
    QXmlStreamReader leser(&xml);
    while (!leser.atEnd()) {
        if (leser.readNext() == QXmlStreamReader::StartElement && leser.name() == QLatin1String("image")) {
            const QXmlStreamAttributes a = leser.attributes();
            boxen.append(QRectF(zahl(a, "left"), zahl(a, "top"), zahl(a, "width"), zahl(a, "height")));
        }
    }
    return boxen;
}

QImage PdfPruefung::bild(int nummer, double dpi) const
{
    const QSizeF punkte = seitenGroesse(nummer);
    QPdfDocument dokument;
    if (dokument.load(m_pfad) != QPdfDocument::Error::None)
        return {};
    const QSize groesse(qRound(punkte.width() * dpi / 72.0), qRound(punkte.height() * dpi / 72.0));
    const QImage gerendert = dokument.render(nummer - 1, groesse);
    // The renderer leaves the paper transparent; print it on white.
    QImage papier(groesse, QImage::Format_RGB32);
    papier.fill(Qt::white);
    QPainter maler(&papier);
    maler.drawImage(QPoint(0, 0), gerendert);
    maler.end();
    return papier;
}

QRectF PdfPruefung::flaeche(const QImage &bild, double dpi, QColor farbe, int toleranz)
{
    int links = bild.width(), oben = bild.height(), rechts = -1, unten = -1;
    for (int y = 0; y < bild.height(); ++y) {
        const QRgb *zeile = reinterpret_cast<const QRgb *>(bild.constScanLine(y));
        for (int x = 0; x < bild.width(); ++x) {
            if (std::abs(qRed(zeile[x]) - farbe.red()) < toleranz && std::abs(qGreen(zeile[x]) - farbe.green()) < toleranz
                && std::abs(qBlue(zeile[x]) - farbe.blue()) < toleranz) {
                links = std::min(links, x), rechts = std::max(rechts, x);
                oben = std::min(oben, y), unten = std::max(unten, y);
            }
        }
    }
    if (rechts < 0)
        return {};
    const double f = 72.0 / dpi;
    return QRectF(QPointF(links * f, oben * f), QPointF((rechts + 1) * f, (unten + 1) * f));
}

int PdfPruefung::tinte(const QImage &bild, double dpi, double x, double y)
{
    const QRgb p = bild.pixel(int(x * dpi / 72.0), int(y * dpi / 72.0));
    return 255 - std::min({qRed(p), qGreen(p), qBlue(p)});
}

QList<double> PdfPruefung::striche(const QImage &bild, double dpi, double x, double y0, double y1)
{
    const double f = dpi / 72.0;
    QList<double> mitten;
    int beginn = -1;
    for (int py = int(y0 * f); py <= int(y1 * f); ++py) {
        const QRgb p = bild.pixel(int(x * f), py);
        const bool dunkel = std::min({qRed(p), qGreen(p), qBlue(p)}) < 235;
        if (dunkel && beginn < 0)
            beginn = py;
        if (!dunkel && beginn >= 0) {
            mitten << (beginn + py) / 2.0 / f;
            beginn = -1;
        }
    }
    return mitten;
}
