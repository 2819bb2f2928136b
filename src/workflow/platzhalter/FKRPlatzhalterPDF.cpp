// Build-time tool: writes the page the document view shows while no document is chosen, one file
// per user language. The pages are drawn here rather than kept as binary files, so the text can
// be changed in the source and every build carries matching placeholders.
//
//   FKRPlatzhalterPDF <de|en> <output.pdf> <font.ttf>

#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPageSize>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>

#include <cstdio>

namespace {

struct Texte {
    QString titel;
    QString hinweis;
};

Texte texteFuer(const QString &sprache)
{
    if (sprache == QLatin1String("de"))
        return {QStringLiteral("Wähle ein Dokument"),
                QStringLiteral("Wähle links ein Dokument aus der Liste oder lege ein neues an.")};
    return {QStringLiteral("Choose a document"),
            QStringLiteral("Choose a document from the list on the left or create a new one.")};
}

// A sheet with a folded corner and a few text lines, in the grey of the hint.
void zeichneBlatt(QPainter &painter, const QRectF &blatt, const QColor &farbe)
{
    const double ecke = blatt.width() * 0.28;
    QPainterPath umriss;
    umriss.moveTo(blatt.topLeft());
    umriss.lineTo(blatt.right() - ecke, blatt.top());
    umriss.lineTo(blatt.right(), blatt.top() + ecke);
    umriss.lineTo(blatt.bottomRight());
    umriss.lineTo(blatt.bottomLeft());
    umriss.closeSubpath();
    QPainterPath falz;
    falz.moveTo(blatt.right() - ecke, blatt.top());
    falz.lineTo(blatt.right() - ecke, blatt.top() + ecke);
    falz.lineTo(blatt.right(), blatt.top() + ecke);

    painter.setPen(QPen(farbe, 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(umriss);
    painter.drawPath(falz);
    const double rand = blatt.width() * 0.18;
    for (int zeile = 0; zeile < 4; ++zeile) {
        const double y = blatt.top() + blatt.height() * (0.45 + 0.12 * zeile);
        const double ende = zeile == 3 ? blatt.center().x() : blatt.right() - rand;
        painter.drawLine(QPointF(blatt.left() + rand, y), QPointF(ende, y));
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 4) {
        std::fprintf(stderr, "usage: FKRPlatzhalterPDF <de|en> <output.pdf> <font.ttf>\n");
        return 2;
    }
    const Texte texte = texteFuer(QString::fromUtf8(argv[1]));
    const QString ausgabe = QString::fromLocal8Bit(argv[2]);
    const int schrift = QFontDatabase::addApplicationFont(QString::fromLocal8Bit(argv[3]));
    const QStringList familien = QFontDatabase::applicationFontFamilies(schrift);
    if (familien.isEmpty()) {
        std::fprintf(stderr, "FKRPlatzhalterPDF: cannot load the font %s\n", argv[3]);
        return 1;
    }

    QPdfWriter writer(ausgabe);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0));
    writer.setResolution(72); // one painter unit is one point
    writer.setTitle(texte.titel);
    writer.setCreator(QStringLiteral("Velmora Rechnungen"));

    QPainter painter;
    if (!painter.begin(&writer)) {
        std::fprintf(stderr, "FKRPlatzhalterPDF: cannot write %s\n", argv[2]);
        return 1;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF seite(QPointF(0, 0), QPageSize(QPageSize::A4).size(QPageSize::Point));
    const QColor grau(150, 150, 150);
    const double mitte = seite.height() * 0.42;

    zeichneBlatt(painter, QRectF(seite.center().x() - 30, mitte - 130, 60, 78), grau);

    QFont titelSchrift(familien.constFirst());
    titelSchrift.setPointSizeF(24);
    painter.setFont(titelSchrift);
    painter.setPen(QColor(70, 70, 70));
    painter.drawText(QRectF(40, mitte - 30, seite.width() - 80, 40), Qt::AlignCenter, texte.titel);

    QFont hinweisSchrift(familien.constFirst());
    hinweisSchrift.setPointSizeF(12);
    painter.setFont(hinweisSchrift);
    painter.setPen(grau);
    painter.drawText(QRectF(90, mitte + 20, seite.width() - 180, 60), Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     texte.hinweis);
    return painter.end() ? 0 : 1;
}
