#pragma once

#include <QWidget>

class FKRAppDelegate;
class FKRDatenbankImport;

// The settings screen: page size, due notifications, sync, the accent colour from eight
// swatches, the database import, and the program's version.
class QBMEinstellungenViewController : public QWidget
{
    Q_OBJECT

public:
    explicit QBMEinstellungenViewController(FKRAppDelegate &delegate, QWidget *parent = nullptr);
    ~QBMEinstellungenViewController() override;

private:
    FKRAppDelegate &m_delegate;
};
