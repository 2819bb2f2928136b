#include "FKRRechnungsZeilenDelegate.h"

#include "FKRBetragsFormat.h"
#include "FKREmpfaenger.h"
#include "FKRLocalizationHelper.h"
#include "FKRRechnung.h"
#include "QBDatumsTexte.h"

#include <QApplication>
#include <QPainter>

#include <exception>

namespace {

constexpr int kRandX = 10;
constexpr int kRandY = 5;
constexpr int kZeilenAbstand = 2;
constexpr int kSpaltenAbstand = 12;

QString summenText(const FKRRechnung &rechnung)
{
    try {
        return FKRBetragsFormat::betragText(FKRBetragsFormat::formatiert(rechnung.rechnungsSumme()), rechnung);
    } catch (const std::exception &) {
        // An item with a quantity but no price (or an amount out of range) leaves the document
        // without a total for now; the row shows none rather than a wrong one.
        return QString();
    }
}

QString statusText(FKRRechnungsZeilenDelegate::Status status)
{
    switch (status) {
    case FKRRechnungsZeilenDelegate::Status::Bezahlt:
        return FKRLocalizationHelper::hauptTabellenText(QStringLiteral("STATUS_BEZAHLT"));
    case FKRRechnungsZeilenDelegate::Status::Faellig:
        return FKRLocalizationHelper::hauptTabellenText(QStringLiteral("STATUS_FAELLIG"));
    case FKRRechnungsZeilenDelegate::Status::Versendet:
        return FKRLocalizationHelper::hauptTabellenText(QStringLiteral("STATUS_VERSENDET"));
    case FKRRechnungsZeilenDelegate::Status::Entwurf:
        break;
    }
    return FKRLocalizationHelper::hauptTabellenText(QStringLiteral("STATUS_ENTWURF"));
}

// The state's signal colour on an unselected row; selected rows use the highlighted text.
QColor statusFarbe(FKRRechnungsZeilenDelegate::Status status, const QPalette &palette)
{
    switch (status) {
    case FKRRechnungsZeilenDelegate::Status::Bezahlt:
        return QColor(40, 150, 40);
    case FKRRechnungsZeilenDelegate::Status::Faellig:
        return QColor(200, 20, 10);
    case FKRRechnungsZeilenDelegate::Status::Versendet:
        return QColor(0, 120, 190);
    case FKRRechnungsZeilenDelegate::Status::Entwurf:
        break;
    }
    return palette.color(QPalette::PlaceholderText);
}

QFont fett(QFont font)
{
    font.setBold(true);
    return font;
}

} // namespace

FKRRechnungsZeilenDelegate::FKRRechnungsZeilenDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

FKRRechnungsZeilenDelegate::Status FKRRechnungsZeilenDelegate::status(const FKRRechnung &rechnung)
{
    if (rechnung.bezahlt() == true)
        return Status::Bezahlt;
    if (rechnung.isFaellig())
        return Status::Faellig;
    if (rechnung.versandt() == true)
        return Status::Versendet;
    return Status::Entwurf;
}

QVariant FKRRechnungsZeilenDelegate::zeilenDaten(const FKRRechnung &rechnung, int role)
{
    switch (role) {
    case NummerRolle:
        return rechnung.rechnungsNummer().value_or(QString());
    case EmpfaengerRolle: {
        const FKREmpfaenger *empfaenger = rechnung.empfaenger();
        return empfaenger ? empfaenger->firmaUndName() : QString();
    }
    case StatusRolle:
        return statusText(status(rechnung));
    case StatusArtRolle:
        return int(status(rechnung));
    case FaelligRolle: {
        const auto faellig = rechnung.faelligkeitsDatum();
        return faellig ? QBDatumsTexte::formattedShortDateString(*faellig) : QString();
    }
    case SummeRolle:
        return summenText(rechnung);
    case ObjektRolle:
        return QVariant::fromValue(static_cast<QObject *>(const_cast<FKRRechnung *>(&rechnung)));
    case Qt::DisplayRole: {
        // Type-ahead in the table matches from the start: the number, then the recipient. Kept
        // cheap, because a search reads it for every row.
        const QString empfaenger = zeilenDaten(rechnung, EmpfaengerRolle).toString();
        const QString nummer = rechnung.rechnungsNummer().value_or(QString());
        return empfaenger.isEmpty() ? nummer : nummer + QStringLiteral(" · ") + empfaenger;
    }
    case Qt::AccessibleTextRole: {
        QStringList teile;
        for (int r : {int(NummerRolle), int(EmpfaengerRolle), int(StatusRolle), int(FaelligRolle), int(SummeRolle)}) {
            const QString teil = zeilenDaten(rechnung, r).toString();
            if (!teil.isEmpty())
                teile.append(teil);
        }
        return teile.join(QStringLiteral(" · "));
    }
    default:
        return QVariant();
    }
}

int FKRRechnungsZeilenDelegate::zeilenHoehe(const QFont &font)
{
    return 2 * kRandY + QFontMetrics(fett(font)).height() + kZeilenAbstand + QFontMetrics(font).height();
}

QSize FKRRechnungsZeilenDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return QSize(200, zeilenHoehe(option.font));
}

void FKRRechnungsZeilenDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                       const QModelIndex &index) const
{
    // Background, selection and focus as the style draws them, without the plain text.
    QStyleOptionViewItem opt(option);
    initStyleOption(&opt, index);
    opt.text.clear();
    const QWidget *widget = opt.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);

    const bool ausgewaehlt = opt.state & QStyle::State_Selected;
    const QPalette::ColorGroup gruppe = (opt.state & QStyle::State_Enabled) ? QPalette::Normal : QPalette::Disabled;
    const QColor textFarbe = opt.palette.color(gruppe, ausgewaehlt ? QPalette::HighlightedText : QPalette::Text);
    const QColor leiseFarbe = ausgewaehlt ? textFarbe : opt.palette.color(gruppe, QPalette::PlaceholderText);

    const QFont fettSchrift = fett(opt.font);
    const QFontMetrics fmFett(fettSchrift);
    const QFontMetrics fm(opt.font);
    const QRect innen = opt.rect.adjusted(kRandX, kRandY, -kRandX, -kRandY);
    const QRect oben(innen.left(), innen.top(), innen.width(), fmFett.height());
    const QRect unten(innen.left(), oben.bottom() + 1 + kZeilenAbstand, innen.width(), fm.height());

    painter->save();

    // First line: number, total on the right.
    const QString summe = index.data(SummeRolle).toString();
    const int summenBreite = summe.isEmpty() ? 0 : fmFett.horizontalAdvance(summe);
    painter->setFont(fettSchrift);
    painter->setPen(textFarbe);
    if (!summe.isEmpty())
        painter->drawText(oben, Qt::AlignRight | Qt::AlignVCenter, summe);
    const int nummerBreite = qMax(0, oben.width() - summenBreite - (summe.isEmpty() ? 0 : kSpaltenAbstand));
    painter->drawText(QRect(oben.left(), oben.top(), nummerBreite, oben.height()), Qt::AlignLeft | Qt::AlignVCenter,
                      fmFett.elidedText(index.data(NummerRolle).toString(), Qt::ElideRight, nummerBreite));

    // Second line: recipient, then state and due date on the right.
    painter->setFont(opt.font);
    const auto status = Status(index.data(StatusArtRolle).toInt());
    const QString statusTeil = index.data(StatusRolle).toString();
    const QString faellig = index.data(FaelligRolle).toString();
    const QString datumTeil = faellig.isEmpty() ? QString() : QStringLiteral(" · ") + faellig;
    const int datumBreite = fm.horizontalAdvance(datumTeil);
    const int statusBreite = fm.horizontalAdvance(statusTeil);
    painter->setPen(leiseFarbe);
    painter->drawText(unten, Qt::AlignRight | Qt::AlignVCenter, datumTeil);
    painter->setPen(ausgewaehlt ? textFarbe : statusFarbe(status, opt.palette));
    painter->drawText(unten.adjusted(0, 0, -datumBreite, 0), Qt::AlignRight | Qt::AlignVCenter, statusTeil);
    const int empfaengerBreite = qMax(0, unten.width() - datumBreite - statusBreite - kSpaltenAbstand);
    painter->setPen(leiseFarbe);
    painter->drawText(QRect(unten.left(), unten.top(), empfaengerBreite, unten.height()), Qt::AlignLeft | Qt::AlignVCenter,
                      fm.elidedText(index.data(EmpfaengerRolle).toString(), Qt::ElideRight, empfaengerBreite));

    painter->restore();
}
