#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QObject>

class QPdfDocument;

// The PDF the document view shows, held in memory: the view reads a rendering right after it
// was written and keeps the bytes, so the next rendering may replace the file while this one is
// on screen, and a frozen PDF is shown straight from the stored bytes. Showing the bytes that
// are shown already costs nothing.
class FKRAnsichtPDFAnzeige : public QObject
{
    Q_OBJECT

public:
    explicit FKRAnsichtPDFAnzeige(QObject *parent = nullptr);
    ~FKRAnsichtPDFAnzeige() override;

    QPdfDocument *dokument() const { return m_dokument; }
    const QByteArray &daten() const { return m_daten; }

    // Shows the file's content; false (and nothing changed) when it cannot be read.
    bool zeigeDatei(const QString &pfad);
    // Shows these bytes; empty bytes show nothing.
    void zeigeDaten(const QByteArray &daten);

private:
    QPdfDocument *m_dokument;
    QByteArray m_daten;
    QBuffer m_puffer;
};
