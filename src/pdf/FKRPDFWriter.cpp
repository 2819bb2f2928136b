#include "FKRPDFWriter.h"

#include "FKRBildLeser.h"
#include "FKRDokumentZuGross.h"
#include "FKRPDFDatei.h"
#include "FKRPDFTextSatz.h"
#include "QBBenutzerEinstellungen.h"

#include <QLocale>
#include <QPainter>
#include <QUrl>

#include <algorithm>

namespace {

// The figures the documents were designed with are single-precision values; keeping exactly
// those puts every line where it was meant to be.
double einfach(double wert)
{
    return static_cast<double>(static_cast<float>(wert));
}

// Neutral grey of lines and guide frames.
const QColor kLinienGrau(128, 128, 128);

} // namespace

FKRPDFWriter::FKRPDFWriter(QObject *parent)
    : QObject(parent)
{
    const bool letter = QBBenutzerEinstellungen::sharedInstance()->pdfDocumentSizeIsLetter();
    m_pageSize = letter ? QSizeF(612.0, 792.0) : QSizeF(einfach(595.276), einfach(841.89));
    m_kcm = letter ? einfach(792.0 / 27.9) : einfach(841.89 / 29.7);
    m_kLineWidth = 0.5;
    m_randLinks = 2.5 * m_kcm;
    m_randRechts = 2.5 * m_kcm;
    m_randOben = 1.5 * m_kcm;
    m_randObenZweiteSeite = 5.0 * m_kcm;
    m_randUnten = 4.0 * m_kcm;
}

FKRPDFWriter::~FKRPDFWriter() = default;

FKRPDFWriter &FKRPDFWriter::instance()
{
    static FKRPDFWriter *geteilt = new FKRPDFWriter();
    return *geteilt;
}

FKRPDFDatei &FKRPDFWriter::datei() const
{
    Q_ASSERT(m_pdfContext && m_pdfContext->istOffen());
    return *m_pdfContext;
}

// ---- File and page lifecycle ----

void FKRPDFWriter::startePDFDateiImPfad(const QString &pfad, FKRRechnung &)
{
    m_letzteDateiGeschrieben = false;
    m_letzterSchreibFehler.clear();
    m_pdfContext.reset();
    m_bilder.clear();
    m_gezeichneteZeichen = 0;
    m_pdfContext = std::make_unique<FKRPDFDatei>(pfad, m_pageSize);
    m_seitennummer = 0;
    erzeugeErsteSeite();
}

double FKRPDFWriter::erzeugeErsteSeite()
{
    // The file's first page was begun when the file was opened.
    ++m_seitennummer;
    zeichneFalzMarkierungen();
    return 11.0 * m_kcm;
}

double FKRPDFWriter::erzeugeNeueSeite(FKRRechnung &rechnung)
{
    if (m_seitennummer >= FKRDokumentZuGross::kMaxSeiten)
        throw FKRDokumentZuGross(FKRDokumentZuGross::Art::Seiten,
                                 "the document would run to more than " + QLocale(QLocale::English).toString(FKRDokumentZuGross::kMaxSeiten).toStdString()
                                     + " pages");
    schreibeSeitennummer(m_seitennummer, rechnung);
    datei().neueSeite(m_pageSize);
    ++m_seitennummer;
    zeichneFalzMarkierungen();
    schreibeSeitennummer(m_seitennummer);
    return m_randObenZweiteSeite;
}

void FKRPDFWriter::beendePDFDatei(FKRRechnung &rechnung)
{
    if (m_seitennummer >= 2)
        schreibeSeitennummer(m_seitennummer, rechnung);
    m_letzteDateiGeschrieben = datei().schliesse(&m_letzterSchreibFehler);
    m_bilder.clear();
}

void FKRPDFWriter::setzeDokumentInformation(const QString &titel, const QString &autor)
{
    datei().setzeInformation(titel, autor);
}

void FKRPDFWriter::verwerfePDFDatei()
{
    m_pdfContext.reset();
    m_bilder.clear();
    m_letzteDateiGeschrieben = false;
}

// ---- Hooks ----

void FKRPDFWriter::erstellePDFDateiImPfad(const QString &, FKRRechnung &) {}

double FKRPDFWriter::schreibeInhaltFuerRechnung(FKRRechnung &, double)
{
    return 0.0;
}

void FKRPDFWriter::schreibeSeitennummer(uint, FKRRechnung &) {}

void FKRPDFWriter::schreibeSeitennummer(uint) {}

// ---- Text ----

QSizeF FKRPDFWriter::berechneTextBoxFuerString(const std::optional<QString> &text, const QFont &font,
                                               QSizeF grenze) const
{
    if (!text)
        return QSizeF(0.0, 0.0);
    pruefeTextUmfang(*text);
    const FKRPDFTextSatz satz(*text, font, grenze.width(), Qt::AlignLeft, einfach(0.15));
    return QSizeF(satz.breite(), satz.hoehe());
}

double FKRPDFWriter::schreibeText(const std::optional<QString> &text, int ausrichtung, const QFont &font, double x,
                                  double y, double weite, double /*hoehe*/, bool zeilenumbruch,
                                  double zeilenabstand)
{
    const QString inhalt = text && !text->isEmpty() ? *text : QStringLiteral(" ");
    pruefeTextUmfang(inhalt);
    const FKRPDFTextSatz satz(inhalt, font, weite, ausrichtung == Rechts ? Qt::AlignRight : Qt::AlignLeft,
                              zeilenabstand);
    m_gezeichneteZeichen += inhalt.size();
    // The height berechneTextBoxFuerString measures (with the standard spacing, never cut to the
    // height limit), taken from the same lines instead of setting the text twice.
    const double gemessen = satz.hoehe(einfach(0.15));
    // A text that runs off the page is drawn no further than the page: what follows it would
    // never be seen, only make the file long.
    satz.zeichne(datei().painter(), datei().geraetePunkt(x, y),
                 QRectF(datei().geraetePunkt(0.0, 0.0), datei().geraetePunkt(m_pageSize.width(), m_pageSize.height())));
    if (!zeilenumbruch)
        return y;
    // The box is the height measured with the standard spacing. Text laid out with wider spacing
    // is still drawn in full, and what follows moves below its last line instead of over it.
    return y + std::max(gemessen, satz.hoehe() - font.pointSizeF() * zeilenabstand);
}

void FKRPDFWriter::pruefeTextUmfang(const QString &text) const
{
    // Checked before the text is set, so a text beyond the bound costs nothing.
    if (m_gezeichneteZeichen + text.size() > FKRDokumentZuGross::kMaxZeichen)
        throw FKRDokumentZuGross(FKRDokumentZuGross::Art::Text,
                                 "the document's texts come to more than "
                                     + QLocale(QLocale::English).toString(FKRDokumentZuGross::kMaxZeichen).toStdString()
                                     + " characters");
}

// ---- Images ----

const FKRBildLeser::Ergebnis &FKRPDFWriter::gelesenesBild(const std::optional<QByteArray> &bytes, const QString &pfad)
{
    // A letterhead is drawn on every page: it is read and decoded once per file, and the file
    // holds it once.
    auto eintrag = std::find_if(m_bilder.begin(), m_bilder.end(),
                                [&](const GelesenesBild &bild) { return bild.bytes == bytes && bild.pfad == pfad; });
    if (eintrag == m_bilder.end())
        eintrag = m_bilder.insert(m_bilder.end(),
                                  {bytes, pfad, bytes ? FKRBildLeser::lies(*bytes) : FKRBildLeser::liesDatei(pfad)});
    if (eintrag->ergebnis.zuGross())
        throw FKRDokumentZuGross(FKRDokumentZuGross::Art::Bild,
                                 "an image of the sender cannot be used: " + eintrag->ergebnis.grund().toStdString());
    return eintrag->ergebnis;
}

double FKRPDFWriter::zeichneBild(const std::optional<QByteArray> &bild, int ausrichtung, double x, double y,
                                 double maxWeite, double maxHoehe)
{
    if (!bild)
        return y;
    return zeichneGelesenesBild(gelesenesBild(bild, QString()), ausrichtung, x, y, maxWeite, maxHoehe);
}

double FKRPDFWriter::zeichneBildMitDateiPfad(const std::optional<QString> &url, int ausrichtung, double x, double y,
                                             double maxWeite, double maxHoehe)
{
    if (!url)
        return y;
    const QUrl ort(*url, QUrl::StrictMode);
    if (!ort.isValid() || !ort.isLocalFile())
        return y;
    return zeichneGelesenesBild(gelesenesBild(std::nullopt, ort.toLocalFile()), ausrichtung, x, y, maxWeite,
                                maxHoehe);
}

double FKRPDFWriter::zeichneGelesenesBild(const FKRBildLeser::Ergebnis &bild, int ausrichtung, double x, double y,
                                          double maxWeite, double maxHoehe)
{
    // Bytes that are no picture count as a picture of no size.
    const double w = bild.punkte.width();
    const double h = bild.punkte.height();
    if (!bild.gelesen() || w <= 0.0 || h <= 0.0)
        return y;

    double breite = w;
    double hoehe = h;
    if (w > maxWeite) {
        breite = maxWeite;
        hoehe = h * maxWeite / w;
        if (hoehe > maxHoehe) {
            hoehe = maxHoehe;
            breite = w * maxHoehe / h;
        }
    } else if (h > maxHoehe) {
        hoehe = maxHoehe;
        breite = w * maxHoehe / h;
    }
    const double links = ausrichtung == Rechts ? x - breite : x;
    const QPointF obenLinks = datei().geraetePunkt(links, y);
    const QRectF ziel(obenLinks, QSizeF(FKRPDFDatei::geraeteLaenge(breite), FKRPDFDatei::geraeteLaenge(hoehe)));
    datei().painter().drawImage(ziel, bild.bild);
    return y + hoehe;
}

// ---- Lines and areas ----

void FKRPDFWriter::zeichneLinieVonStartpunkt(QPointF start, QPointF ende, double linienbreite)
{
    QPainter &painter = datei().painter();
    painter.save();
    painter.setPen(QPen(kLinienGrau, FKRPDFDatei::geraeteLaenge(linienbreite), Qt::SolidLine, Qt::FlatCap));
    painter.setBrush(Qt::NoBrush);
    painter.drawLine(datei().geraetePunkt(start.x(), start.y()), datei().geraetePunkt(ende.x(), ende.y()));
    painter.restore();
}

void FKRPDFWriter::zeichneWaagerechteLinieAnYPosition(double y, double vonX, double zuX, double linienbreite)
{
    zeichneLinieVonStartpunkt(QPointF(vonX, y), QPointF(zuX, y), linienbreite);
}

void FKRPDFWriter::fuelleRechteckVonStartpunkt(QPointF start, QPointF ende, const QColor &farbe)
{
    const QRectF flaeche = QRectF(datei().geraetePunkt(start.x(), start.y()), datei().geraetePunkt(ende.x(), ende.y()))
                               .normalized();
    datei().painter().fillRect(flaeche, farbe);
}

void FKRPDFWriter::zeichneFalzMarkierungen()
{
    for (const double faktor : {9.9, 14.8, 19.7})
        zeichneWaagerechteLinieAnYPosition(einfach(faktor) * m_kcm, 14.0, 21.0, einfach(0.3));
}

void FKRPDFWriter::zeichneRahmen(double linksCm, double rechtsCm, double obenCm, double untenCm)
{
    const double links = linksCm * m_kcm;
    const double rechts = rechtsCm * m_kcm;
    const double oben = obenCm * m_kcm;
    const double unten = untenCm * m_kcm;
    const double breite = einfach(0.1);
    zeichneLinieVonStartpunkt({links, oben}, {rechts, oben}, breite);
    zeichneLinieVonStartpunkt({rechts, oben}, {rechts, unten}, breite);
    zeichneLinieVonStartpunkt({rechts, unten}, {links, unten}, breite);
    zeichneLinieVonStartpunkt({links, unten}, {links, oben}, breite);
}

void FKRPDFWriter::zeichneAbsenderBoxKlein() { zeichneRahmen(2.0, 10.5, 4.5, 5.0); }
void FKRPDFWriter::zeichneAbsenderBoxGross() { zeichneRahmen(12.5, 19.0, 2.0, 9.0); }
void FKRPDFWriter::zeichneEmpfaengerBox() { zeichneRahmen(2.0, 10.5, 5.0, 9.0); }
void FKRPDFWriter::zeichneInhaltsBox() { zeichneRahmen(2.0, 19.0, 11.0, 27.7); }
