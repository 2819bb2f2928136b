#pragma once

#include <QImage>
#include <QLabel>
#include <QPointer>
#include <QUrl>

#include <optional>

class FKRAbsender;
class FKRAppDelegate;
class QMimeData;

// An image slot of the sender tab: shows one of the sender's images (logo, signature,
// letterhead) and takes a new one as an image file dropped on it or chosen in a file dialog.
// The file is checked (its type, for the letterhead also its width), shown, and its bytes are
// stored in the sender. The three kinds of slot differ in the attributes they use and in their
// checks; they are the subclasses.
//
// Images dragged out of a slot carry a marker with the slot's class, and a slot refuses a drop
// from a slot of its own kind, so the logo is not stored again by dragging it about.
class FKRImageView : public QLabel
{
    Q_OBJECT

public:
    // The mime type of the marker on drags that start in a slot; its data is the slot's class.
    static const QString kSlotMimeType;

    // The accepted image types (jpg, jpeg, png, tif, tiff), and whether a file name ends in one
    // of them, in any case.
    static const QStringList &akzeptierteEndungen();
    static bool istAkzeptierterDateiTyp(const QUrl &datei);
    // The size of an image on paper in points: from its own resolution, one point per pixel
    // when it states none (the way the documents draw it).
    static QSizeF groesseInPunkten(const QImage &bild);

    explicit FKRImageView(FKRAppDelegate &delegate, QWidget *parent = nullptr);

    // The sender whose image the slot edits; nullptr disables the slot.
    FKRAbsender *absender() const;
    void setAbsender(FKRAbsender *absender);
    // The file last taken in, nullopt before the first.
    const std::optional<QUrl> &imageFileURL() const { return m_imageFileURL; }
    const QImage &bild() const { return m_bild; }
    // Whether the slot holds an image: one it shows, or a stored one beyond the bounds of the
    // image reader, which it names instead of showing.
    bool zeigtBild() const { return !m_bild.isNull() || m_zuGross; }

    // Empties the slot, then shows the sender's stored bytes, or else the image its stored path
    // (a URL text) refers to.
    void zeigeGespeichertesBild();
    // The file dialog (for keyboard users and whoever prefers it): the chosen file is taken
    // like a dropped one.
    void waehleBildDatei();
    // Checks, shows and stores the file; false, with nothing stored, when it is refused. A
    // refused type or size is explained in an alert, and so is a file beyond the bounds of the
    // image reader (FKRBildLeser: 32 MB, 32 megapixels).
    bool uebernehmeDatei(const QUrl &datei);

    // The slot's pair of attributes in the sender.
    virtual std::optional<QByteArray> gespeicherteBytes(const FKRAbsender &absender) const = 0;
    virtual std::optional<QString> gespeicherterPfad(const FKRAbsender &absender) const = 0;
    // Clears bytes and path; the caller saves.
    virtual void loescheBild(FKRAbsender &absender) const = 0;

Q_SIGNALS:
    // A new image was stored in the sender.
    void bildGespeichert();
    // The Delete key on the focused slot: the editor asks and clears, like its delete button.
    void loeschenAngefordert();

protected:
    // Stores the file's bytes in the slot's attribute of the sender.
    virtual bool speichereBytes(FKRAbsender &absender, const QUrl &datei) const = 0;
    // The alert for a file of the wrong type.
    virtual QString typWarnungsSchluessel() const;
    // A further check of the decoded image; false after explaining the refusal to the user.
    virtual bool pruefeBild(const QImage &bild);
    void zeigeWarnung(const QString &textSchluessel);
    FKRAppDelegate &delegate() const { return m_delegate; }

    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    bool kommtVonGleicherArt(const QMimeData &daten) const;
    void zeige(const QImage &bild);
    void skaliere();
    void setzeHervorhebung(bool an);

    // Where the shown image came from in the store, so an unchanged image is not decoded again
    // each time the tab is refreshed.
    struct Quelle {
        std::optional<QByteArray> bytes;
        std::optional<QString> pfad;
        bool operator==(const Quelle &) const = default;
    };

    FKRAppDelegate &m_delegate;
    QPointer<FKRAbsender> m_absender;
    std::optional<Quelle> m_quelle;
    std::optional<QUrl> m_imageFileURL;
    QImage m_bild;
    bool m_zuGross = false;
    QPoint m_druckPunkt;
};
