#include "FKRPDFDatei.h"

#include "FKRPDFHerausgeber.h"
#include "FKRPDFSchutz.h"
#include "FKRPDFTextSatz.h"

#include <QPageLayout>
#include <QPageSize>
#include <QSaveFile>

#include <stdexcept>

namespace {

QPageLayout seitenLayout(QSizeF groesse)
{
    return QPageLayout(QPageSize(groesse, QPageSize::Point, QString(), QPageSize::ExactMatch),
                       QPageLayout::Portrait, QMarginsF(0, 0, 0, 0), QPageLayout::Point);
}

} // namespace

FKRPDFDatei::FKRPDFDatei(const QString &pfad, QSizeF ersteSeite)
    : m_pfad(pfad)
    , m_titel(QString::fromUtf8(FKRPDFHerausgeber::kTitel))
    , m_autor(QString::fromUtf8(FKRPDFHerausgeber::kWebAdresse))
{
    m_puffer.open(QIODevice::WriteOnly);
    m_pdf = std::make_unique<QPdfWriter>(&m_puffer);
    m_pdf->setResolution(qRound(72 * FKRPDFTextSatz::kMassstab));
    setzeSeitenGroesse(ersteSeite);
    if (!m_painter.begin(m_pdf.get()))
        throw std::runtime_error("cannot start drawing a PDF");
    m_painter.setRenderHint(QPainter::LosslessImageRendering);
}

FKRPDFDatei::~FKRPDFDatei()
{
    if (m_painter.isActive())
        m_painter.end();
}

void FKRPDFDatei::setzeSeitenGroesse(QSizeF groesse)
{
    m_pdf->setPageLayout(seitenLayout(groesse));
    m_hoehenVersatz = m_pdf->pageLayout().pageSize().sizePoints().height() - groesse.height();
    m_seitenGroessen.append(groesse);
}

QPointF FKRPDFDatei::geraetePunkt(double x, double y) const
{
    return QPointF(x * FKRPDFTextSatz::kMassstab, (y + m_hoehenVersatz) * FKRPDFTextSatz::kMassstab);
}

double FKRPDFDatei::geraeteLaenge(double punkte)
{
    return punkte * FKRPDFTextSatz::kMassstab;
}

void FKRPDFDatei::setzeInformation(const QString &titel, const QString &autor)
{
    m_titel = titel;
    m_autor = autor;
}

void FKRPDFDatei::neueSeite(QSizeF groesse)
{
    setzeSeitenGroesse(groesse);
    m_pdf->newPage();
}

bool FKRPDFDatei::schliesse(QString *fehler)
{
    if (!m_painter.end()) {
        if (fehler)
            *fehler = QStringLiteral("the PDF could not be drawn");
        return false;
    }
    try {
        const QByteArray fertig = FKRPDFSchutz::schuetze(m_puffer.data(), m_seitenGroessen, m_titel, m_autor);
        QSaveFile datei(m_pfad);
        datei.setDirectWriteFallback(false);
        if (!datei.open(QIODevice::WriteOnly) || datei.write(fertig) != fertig.size() || !datei.commit()) {
            if (fehler)
                *fehler = datei.errorString();
            return false;
        }
    } catch (const std::exception &ausnahme) {
        if (fehler)
            *fehler = QString::fromStdString(ausnahme.what());
        return false;
    }
    return true;
}
