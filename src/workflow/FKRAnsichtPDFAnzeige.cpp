#include "FKRAnsichtPDFAnzeige.h"

#include <QFile>
#include <QPdfDocument>

FKRAnsichtPDFAnzeige::FKRAnsichtPDFAnzeige(QObject *parent)
    : QObject(parent)
    , m_dokument(new QPdfDocument(this))
{
}

FKRAnsichtPDFAnzeige::~FKRAnsichtPDFAnzeige()
{
    // The document reads from the buffer until it is closed.
    m_dokument->close();
}

bool FKRAnsichtPDFAnzeige::zeigeDatei(const QString &pfad)
{
    QFile datei(pfad);
    if (!datei.open(QIODevice::ReadOnly))
        return false;
    zeigeDaten(datei.readAll());
    return true;
}

void FKRAnsichtPDFAnzeige::zeigeDaten(const QByteArray &daten)
{
    if (daten == m_daten && (daten.isEmpty() || m_dokument->status() == QPdfDocument::Status::Ready))
        return;
    m_dokument->close();
    m_puffer.close();
    m_daten = daten;
    if (m_daten.isEmpty())
        return;
    m_puffer.setBuffer(&m_daten);
    m_puffer.open(QIODevice::ReadOnly);
    m_dokument->load(&m_puffer);
}
