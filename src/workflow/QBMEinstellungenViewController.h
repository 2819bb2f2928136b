#pragma once

#include <QWidget>

class FKRAppDelegate;
class FKRDatenbankImport;
class QBBenutzerEinstellungen;
class QCheckBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QSpinBox;

// The settings screen: page size, due notifications, sync, a dunning letter's days of grace,
// the accent colour from eight swatches, the database import, and the program's version. Every
// change goes to the settings at once and is saved, so closing the screen needs no save.
class QBMEinstellungenViewController : public QWidget
{
    Q_OBJECT

public:
    // The settings are the shared ones unless a test hands in its own.
    explicit QBMEinstellungenViewController(FKRAppDelegate &delegate, QWidget *parent = nullptr,
                                            QBBenutzerEinstellungen *einstellungen = nullptr);
    ~QBMEinstellungenViewController() override;

    // The swatch codes in the order of the swatches (mid grey, dark grey, red, orange, yellow,
    // green, blue, purple).
    static const QList<int> &farbCodes();

    void appColorSelected(int swatch); // 1..8
    void dokumenteInA4Selected();
    void deaktiviereFaelligeRechnungsMitteilungenSelected();
    void verwendeIcloudSyncSelected();
    void mahnungZahlungsfristSelected(int tage);
    void datenbankImportButtonSelected();

    QCheckBox *dokumenteInA4Checkbox() const { return m_a4; }
    QCheckBox *mitteilungenCheckbox() const { return m_mitteilungen; }
    QCheckBox *syncCheckbox() const { return m_sync; }
    QSpinBox *mahnungZahlungsfristSpinBox() const { return m_zahlungsfrist; }
    QPushButton *swatch(int nummer) const; // 1..8
    QPushButton *importButton() const { return m_importButton; }
    QLabel *versionStringTextField() const { return m_version; }
    QWidget *spinnerView() const { return m_spinner; }
    FKRDatenbankImport &datenbankImport();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void baueOberflaeche();
    QWidget *baueSwatches();
    void zeigeEinstellungen();

    FKRAppDelegate &m_delegate;
    QBBenutzerEinstellungen &m_einstellungen;
    FKRDatenbankImport *m_import = nullptr;
    QCheckBox *m_a4 = nullptr;
    QCheckBox *m_mitteilungen = nullptr;
    QCheckBox *m_sync = nullptr;
    QSpinBox *m_zahlungsfrist = nullptr;
    QList<QPushButton *> m_swatches;
    QPushButton *m_importButton = nullptr;
    QLabel *m_version = nullptr;
    QWidget *m_spinner = nullptr;
    QProgressBar *m_progressIndicator = nullptr;
};
