#include "FKRAnsichtDruckauftrag.h"

#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfDocument>
#include <QPrintDialog>
#include <QPrinter>

#include <algorithm>

namespace {

// Rasterising at the printer's full resolution would take hundreds of megabytes per page at
// 1200 dpi; 300 dpi is what office printers resolve in practice.
constexpr int kHoechsteDruckAufloesung = 300;

} // namespace

void FKRAnsichtDruckauftrag::druckeMitDialog(QPdfDocument &dokument, const QString &name, const Dialog &dialog)
{
    if (dokument.status() != QPdfDocument::Status::Ready || dokument.pageCount() <= 0)
        return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(name);
    richteEin(printer, dokument);
    if (dialog && dialog(printer))
        drucke(dokument, printer);
}

FKRAnsichtDruckauftrag::Dialog FKRAnsichtDruckauftrag::systemDialog(QWidget *fenster, const QPdfDocument &dokument)
{
    return [fenster, &dokument](QPrinter &printer) {
        QPrintDialog dialog(&printer, fenster);
        dialog.setMinMax(1, dokument.pageCount());
        return dialog.exec() == QDialog::Accepted;
    };
}

void FKRAnsichtDruckauftrag::richteEin(QPrinter &printer, const QPdfDocument &dokument)
{
    printer.setFullPage(true);
    if (dokument.pageCount() > 0) {
        const QSizeF punkte = dokument.pagePointSize(0);
        if (punkte.isValid() && !punkte.isEmpty()) {
            const bool quer = punkte.width() > punkte.height();
            const QSizeF hochkant = quer ? punkte.transposed() : punkte;
            const QPageSize groesse(hochkant, QPageSize::Point, QString(), QPageSize::FuzzyOrientationMatch);
            printer.setPageLayout(QPageLayout(groesse, quer ? QPageLayout::Landscape : QPageLayout::Portrait,
                                              QMarginsF(0, 0, 0, 0)));
        }
    }
    printer.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Point);
}

int FKRAnsichtDruckauftrag::drucke(QPdfDocument &dokument, QPrinter &printer)
{
    const int seiten = dokument.pageCount();
    if (seiten <= 0)
        return 0;
    int erste = 0;
    int letzte = seiten - 1;
    if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0) {
        erste = std::clamp(printer.fromPage() - 1, 0, seiten - 1);
        letzte = std::clamp(printer.toPage() - 1, erste, seiten - 1);
    }

    QPainter painter;
    if (!painter.begin(&printer))
        return 0;
    const QRectF blatt = printer.pageLayout().fullRectPixels(printer.resolution());
    const double dpi = std::min(printer.resolution(), kHoechsteDruckAufloesung);
    int gedruckt = 0;
    for (int seite = erste; seite <= letzte; ++seite) {
        if (gedruckt > 0 && !printer.newPage())
            break;
        const QSizeF punkte = dokument.pagePointSize(seite);
        if (punkte.isEmpty())
            continue;
        // The page fitted into the sheet, centred, proportions kept.
        const QSizeF ziel = punkte.scaled(blatt.size(), Qt::KeepAspectRatio);
        const QRectF zielRechteck(blatt.center() - QPointF(ziel.width() / 2, ziel.height() / 2), ziel);
        const double faktor = std::min(dpi / 72.0, ziel.width() / punkte.width());
        const QSize pixel = (punkte * faktor).toSize().expandedTo(QSize(1, 1));
        const QImage bild = dokument.render(seite, pixel);
        QImage papier(bild.size(), QImage::Format_RGB32);
        papier.fill(Qt::white);
        {
            QPainter weiss(&papier);
            weiss.drawImage(0, 0, bild);
        }
        painter.drawImage(zielRechteck, papier);
        ++gedruckt;
    }
    painter.end();
    return gedruckt;
}
