#pragma once

#include <QBuffer>
#include <QList>
#include <QPainter>
#include <QPdfWriter>
#include <QSizeF>
#include <QString>

#include <memory>

// One PDF file while it is being written: the drawing engine's output in memory, the painter
// on it, and the page sizes. Nothing reaches the target path until the file is closed: then the
// protection pass (FKRPDFSchutz) runs and the finished bytes replace any file at the path in
// one step. A file that is abandoned (an error while drawing) leaves the path as it was.
//
// The painter works in device units (FKRPDFTextSatz::kMassstab per point) from the top-left
// corner of the page; geraetePunkt() converts the writer's points.
class FKRPDFDatei
{
public:
    FKRPDFDatei(const QString &pfad, QSizeF ersteSeite);
    ~FKRPDFDatei();
    FKRPDFDatei(const FKRPDFDatei &) = delete;
    FKRPDFDatei &operator=(const FKRPDFDatei &) = delete;

    QPainter &painter() { return m_painter; }
    const QString &pfad() const { return m_pfad; }
    bool istOffen() const { return m_painter.isActive(); }

    // A point in page points (from the top-left) in the painter's device units.
    QPointF geraetePunkt(double x, double y) const;
    static double geraeteLaenge(double punkte);

    // Title and author of the file's document information; the publisher's (FKRPDFHerausgeber)
    // until set.
    void setzeInformation(const QString &titel, const QString &autor);

    // Begins the next page; the first one is begun by the constructor.
    void neueSeite(QSizeF groesse);

    // Finishes the file and writes it to the path. Returns false and sets `fehler` when the
    // drawing engine failed or the path cannot be written; the path then keeps its old content.
    bool schliesse(QString *fehler);

private:
    void setzeSeitenGroesse(QSizeF groesse);

    QString m_pfad;
    QBuffer m_puffer;
    std::unique_ptr<QPdfWriter> m_pdf;
    QPainter m_painter;
    QList<QSizeF> m_seitenGroessen;
    QString m_titel;
    QString m_autor;
    // How far the drawing engine's page (whole points) is higher than the exact page; the
    // content is moved by this much so that it sits right once the exact media box is set.
    double m_hoehenVersatz = 0.0;
};
