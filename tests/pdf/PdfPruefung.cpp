#include "PdfPruefung.h"

#include <QPainter>
#include <QPdfDocument>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <stdexcept>

namespace {

double zahl(const QXmlStreamAttributes &a, const char *name) { return a.value(QLatin1String(name)).toDouble(); }

QByteArray starte(const QString &programm, const QStringList &argumente, QString *fehler = nullptr)
{
    QProcess prozess;
    prozess.start(programm, argumente);
    QString grund;
    if (!prozess.waitForStarted(10000) || !prozess.waitForFinished(60000))
        grund = programm + QStringLiteral(": ") + prozess.errorString();
    // qpdf reports warnings with status 3 and still answers.
    else if (prozess.exitStatus() != QProcess::NormalExit || (prozess.exitCode() != 0 && prozess.exitCode() != 3))
        grund = programm + QStringLiteral(" failed: ") + QString::fromUtf8(prozess.readAllStandardError());
    if (fehler)
        *fehler = grund;
    return grund.isEmpty() ? prozess.readAllStandardOutput() : QByteArray();
}

// The first separator counts: values may hold a web address.
QMap<QString, QString> schluesselWerte(const QByteArray &ausgabe)
{
    QMap<QString, QString> werte;
    for (const QString &zeile : QString::fromUtf8(ausgabe).split(QLatin1Char('\n'))) {
        const qsizetype gleich = zeile.indexOf(QLatin1String(" = "));
        const qsizetype stelle = gleich >= 0 ? gleich : zeile.indexOf(QLatin1Char(':'));
        if (stelle > 0)
            werte.insert(zeile.left(stelle).trimmed(), zeile.mid(stelle + (gleich >= 0 ? 3 : 1)).trimmed());
        else if (!zeile.trimmed().isEmpty())
            werte.insert(zeile.trimmed(), QString());
    }
    return werte;
}

} // namespace

PdfPruefung::PdfPruefung(const QString &pfad)
    : m_pfad(pfad)
{
    QXmlStreamReader leser(starte(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pfad, QStringLiteral("-")},
                                  &m_fehler));
    while (m_fehler.isEmpty() && !leser.atEnd()) {
        if (leser.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes a = leser.attributes();
        if (leser.name() == QLatin1String("page"))
            m_seiten.append({QSizeF(zahl(a, "width"), zahl(a, "height")), {}});
        else if (leser.name() == QLatin1String("word") && !m_seiten.isEmpty())
            m_seiten.last().woerter.append({leser.readElementText(), {QPointF(zahl(a, "xMin"), zahl(a, "yMin")),
                                                                      QPointF(zahl(a, "xMax"), zahl(a, "yMax"))}});
    }
    if (m_fehler.isEmpty() && (leser.hasError() || m_seiten.isEmpty()))
        m_fehler = QStringLiteral("pdftotext -bbox: no pages in ") + m_pfad + u' ' + leser.errorString();
}

const PdfPruefung::Seite &PdfPruefung::seite_(int seite) const
{
    if (seite < 1 || seite > m_seiten.size())
        throw std::out_of_range("no page " + std::to_string(seite) + " in " + m_pfad.toStdString());
    return m_seiten.at(seite - 1);
}

std::optional<QRectF> PdfPruefung::finde(int nummer, const QString &phrase) const
{
    const QStringList teile = phrase.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    const QList<Wort> &alle = woerter(nummer);
    for (qsizetype start = 0; !teile.isEmpty() && start + teile.size() <= alle.size(); ++start) {
        QRectF box = alle.at(start).box;
        bool passt = true;
        for (qsizetype i = 0; i < teile.size() && passt; ++i) {
            passt = alle.at(start + i).text == teile.at(i);
            box = box.united(alle.at(start + i).box);
        }
        if (passt)
            return box;
    }
    return std::nullopt;
}

QString PdfPruefung::text(int nummer) const
{
    seite_(nummer);
    if (!m_seitenTexte) // pages end in form feeds
        m_seitenTexte =
            QString::fromUtf8(starte(QStringLiteral("pdftotext"), {m_pfad, QStringLiteral("-")})).split(u'\f');
    return m_seitenTexte->value(nummer - 1).trimmed();
}

QString PdfPruefung::fliesstext() const
{
    QStringList seiten;
    for (int seite = 1; seite <= seitenAnzahl(); ++seite)
        seiten << text(seite);
    return seiten.join(u' ').replace(QChar(QChar::Nbsp), u' ').simplified();
}

QMap<QString, QString> PdfPruefung::info() const
{
    return schluesselWerte(starte(QStringLiteral("pdfinfo"), {m_pfad}));
}

QMap<QString, QString> PdfPruefung::verschluesselung() const
{
    return schluesselWerte(starte(QStringLiteral("qpdf"), {QStringLiteral("--show-encryption"), m_pfad}));
}

QImage PdfPruefung::bild(int nummer, double dpi) const
{
    const QSizeF punkte = seitenGroesse(nummer);
    QPdfDocument dokument;
    if (dokument.load(m_pfad) != QPdfDocument::Error::None)
        return {};
    const QSize groesse(qRound(punkte.width() * dpi / 72.0), qRound(punkte.height() * dpi / 72.0));
    QImage papier(groesse, QImage::Format_RGB32);
    papier.fill(Qt::white);
    QPainter(&papier).drawImage(QPoint(0, 0), dokument.render(nummer - 1, groesse));
    return papier;
}

QRectF PdfPruefung::flaeche(const QImage &bild, double dpi, QColor farbe, int toleranz)
{
    const auto nah = [&](int a, int b) { return std::abs(a - b) < toleranz; };
    QRectF box;
    for (int y = 0; y < bild.height(); ++y) {
        const QRgb *zeile = reinterpret_cast<const QRgb *>(bild.constScanLine(y));
        for (int x = 0; x < bild.width(); ++x)
            if (nah(qRed(zeile[x]), farbe.red()) && nah(qGreen(zeile[x]), farbe.green())
                && nah(qBlue(zeile[x]), farbe.blue()))
                box = box.united(QRectF(x, y, 1, 1));
    }
    const double f = 72.0 / dpi;
    return box.isNull() ? QRectF() : QRectF(box.left() * f, box.top() * f, box.width() * f, box.height() * f);
}
