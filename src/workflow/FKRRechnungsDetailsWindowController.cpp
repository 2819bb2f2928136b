#include "FKRRechnungsDetailsWindowController.h"

#include "FKRAppDelegate.h"
#include "FKRArrayController.h"
#include "FKRPosten.h"
#include "FKRRechnung.h"
#include "FKRRechnungsAnsichtViewController.h"
#include "FKRRechnungsDetailsViewController.h"

#include <QCloseEvent>
#include <QShortcut>
#include <QVBoxLayout>

namespace {
// The open editor windows, the one activated last at the end.
QList<FKRRechnungsDetailsWindowController *> &offeneFenster()
{
    static QList<FKRRechnungsDetailsWindowController *> fenster;
    return fenster;
}
} // namespace

FKRRechnungsDetailsWindowController::FKRRechnungsDetailsWindowController(FKRAppDelegate &delegate, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_delegate(delegate)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("rechnungsDetailsWindow"));
    m_editor = new FKRRechnungsDetailsViewController(delegate, this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->addWidget(m_editor);
    resize(960, 680);
    connect(m_editor, &FKRRechnungsDetailsViewController::schliessenAngefordert, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, &QWidget::close);
    offeneFenster().append(this);
}

FKRRechnungsDetailsWindowController::~FKRRechnungsDetailsWindowController()
{
    offeneFenster().removeAll(this);
}

FKRRechnungsAnsichtViewController *FKRRechnungsDetailsWindowController::rechnungsAnsichtViewController() const
{
    return m_ansicht;
}

void FKRRechnungsDetailsWindowController::setRechnungsAnsichtViewController(FKRRechnungsAnsichtViewController *ansicht)
{
    m_ansicht = ansicht;
}

FKRRechnungsDetailsWindowController *FKRRechnungsDetailsWindowController::oeffne(FKRAppDelegate &delegate,
                                                                                FKRRechnung *rechnung,
                                                                                FKRRechnungsAnsichtViewController *ansicht,
                                                                                FKREmpfaenger *empfaenger)
{
    auto *fenster = new FKRRechnungsDetailsWindowController(delegate);
    fenster->setRechnungsAnsichtViewController(ansicht);
    FKRRechnungsDetailsViewController *editor = fenster->editor();
    if (empfaenger)
        editor->waehleEmpfaengerAus(empfaenger);
    editor->setRechnung(rechnung);
    editor->rechnungsPostenArrayController().setFilterPredicate([rechnung](const ManagedObject &objekt) {
        return rechnung && static_cast<const FKRPosten &>(objekt).rechnung() == rechnung;
    });
    // The title bar stays as plain as the desktop allows: the document number and nothing else.
    const auto zeigeTitel = [fenster, rechnung] {
        fenster->setWindowTitle(rechnung ? rechnung->rechnungsNummer().value_or(QString()).trimmed() : QString());
    };
    zeigeTitel();
    if (rechnung)
        connect(rechnung, &FKRRechnung::rechnungsNummerChanged, fenster, zeigeTitel);
    fenster->show();
    fenster->raise();
    fenster->activateWindow();
    offeneFenster().removeAll(fenster);
    offeneFenster().append(fenster);
    return fenster;
}

FKRRechnungsDetailsWindowController *FKRRechnungsDetailsWindowController::aktuellesFenster()
{
    return offeneFenster().isEmpty() ? nullptr : offeneFenster().last();
}

bool FKRRechnungsDetailsWindowController::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate && offeneFenster().contains(this)) {
        offeneFenster().removeAll(this);
        offeneFenster().append(this);
    }
    return QWidget::event(event);
}

void FKRRechnungsDetailsWindowController::closeEvent(QCloseEvent *event)
{
    m_editor->commitEditing();
    m_delegate.saveAction();
    if (m_ansicht)
        m_ansicht->aktualisiereAnsicht();
    m_editor->setRechnung(nullptr);
    // A closed editor receives no more imported items, even before it is deleted.
    offeneFenster().removeAll(this);
    event->accept();
}
