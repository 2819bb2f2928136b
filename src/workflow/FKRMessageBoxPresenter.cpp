#include "FKRMessageBoxPresenter.h"

#include "FKRLocalizationHelper.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

namespace {
QString text(const QString &schluessel)
{
    return FKRLocalizationHelper::hauptTabellenText(schluessel);
}

QMessageBox::Icon symbol(FKRAlert::Stil stil)
{
    switch (stil) {
    case FKRAlert::Stil::Warnung:
        return QMessageBox::Warning;
    case FKRAlert::Stil::Kritisch:
        return QMessageBox::Critical;
    case FKRAlert::Stil::Information:
        break;
    }
    return QMessageBox::Information;
}
} // namespace

int FKRMessageBoxPresenter::zeigeAlert(const FKRAlert &alert)
{
    QMessageBox box(symbol(alert.stil), text(alert.titelSchluessel), text(alert.textSchluessel), QMessageBox::NoButton,
                    elternFenster());
    box.setInformativeText(alert.zusatzText);
    QList<QAbstractButton *> knoepfe;
    for (int i = 0; i < alert.knopfSchluessel.size(); ++i) {
        // The first button acts; the others are the ways out, in their given order.
        QPushButton *knopf = box.addButton(text(alert.knopfSchluessel.at(i)),
                                           i == 0 ? QMessageBox::AcceptRole : QMessageBox::RejectRole);
        knoepfe.append(knopf);
        if (i == 0)
            box.setDefaultButton(knopf);
    }
    box.exec();
    return int(knoepfe.indexOf(box.clickedButton()));
}

bool FKRMessageBoxPresenter::praesentiereFehler(const FKRAnwendungsFehler &fehler)
{
    QMessageBox box(QMessageBox::Critical, fehler.localizedDescription, fehler.localizedDescription, QMessageBox::Ok,
                    elternFenster());
    box.setInformativeText(fehler.failureReason);
    if (!fehler.underlyingError.isEmpty())
        box.setDetailedText(fehler.underlyingError);
    box.exec();
    return false;
}

QStringList FKRMessageBoxPresenter::waehleDateien(const QString &startOrdner, const QString &nachrichtSchluessel,
                                                  const QString &weitererOrt, const DateiFilter &filter)
{
    QFileDialog dialog(elternFenster(), text(nachrichtSchluessel), startOrdner);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (!filter.endungen.isEmpty()) {
        // The dialog matches names regardless of case, so "LOGO.PNG" is listed with "logo.png".
        QStringList muster;
        for (const QString &endung : filter.endungen)
            muster.append(QStringLiteral("*.") + endung);
        dialog.setNameFilter(QStringLiteral("%1 (%2)").arg(text(filter.schluessel), muster.join(QLatin1Char(' '))));
    }
    QList<QUrl> orte = dialog.sidebarUrls();
    orte.append(QUrl::fromLocalFile(startOrdner));
    if (!weitererOrt.isEmpty())
        orte.append(QUrl::fromLocalFile(weitererOrt));
    dialog.setSidebarUrls(orte);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.selectedFiles();
}

QString FKRMessageBoxPresenter::waehleSpeicherOrt(const QString &startOrdner, const QString &vorschlag,
                                                  const QString &nachrichtSchluessel, const QString &dateiTyp)
{
    QFileDialog dialog(elternFenster(), text(nachrichtSchluessel), startOrdner);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilter(QStringLiteral("PDF (*.%1)").arg(dateiTyp));
    dialog.setDefaultSuffix(dateiTyp);
    dialog.selectFile(vorschlag);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

QWidget *FKRMessageBoxPresenter::elternFenster() const
{
    if (QWidget *aktiv = QApplication::activeWindow())
        return aktiv;
    return m_fenster;
}
