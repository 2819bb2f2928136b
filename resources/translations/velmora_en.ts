<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="de_DE">
<context>
    <name>Velmora</name>
    <!-- Document number labels and number texts -->
    <message>
        <source>Anschreiben:</source>
        <translation>Cover letter:</translation>
    </message>
    <message>
        <source>Angebot:</source>
        <translation>Quote:</translation>
    </message>
    <message>
        <source>Rechnung:</source>
        <translation>Invoice:</translation>
    </message>
    <message>
        <source>Honorarnote:</source>
        <translation>Fee note:</translation>
    </message>
    <message>
        <source>Mahnung:</source>
        <translation>Reminder:</translation>
    </message>
    <message>
        <source>Kopie</source>
        <extracomment>Appended directly to the source number of a duplicate; carries its own leading blank.</extracomment>
        <translation> Copy</translation>
    </message>
    <message>
        <source>Mahnung für: </source>
        <extracomment>Put in front of the source number of a dunning letter.</extracomment>
        <translation>Reminder for: </translation>
    </message>
    <!-- Names of new senders and recipients -->
    <message>
        <source> Neuer Absender</source>
        <translation> New sender</translation>
    </message>
    <message>
        <source> Neuer Empfänger</source>
        <translation> New recipient</translation>
    </message>
    <message>
        <source>Neuer Absender</source>
        <translation>New sender</translation>
    </message>
    <message>
        <source>Neuer Empfänger</source>
        <translation>New recipient</translation>
    </message>
    <!-- Default texts of a new item -->
    <message>
        <source>Bezeichnung</source>
        <translation>Item</translation>
    </message>
    <message>
        <source>Beschreibung</source>
        <extracomment>Also the heading of the first column of the item table.</extracomment>
        <translation>Description</translation>
    </message>
    <!-- Item table and totals -->
    <message>
        <source>Anzahl</source>
        <translation>Qty</translation>
    </message>
    <message>
        <source>Betrag</source>
        <translation>Unit price</translation>
    </message>
    <message>
        <source>Summe</source>
        <translation>Amount</translation>
    </message>
    <message>
        <source>Zwischensumme</source>
        <translation>Subtotal</translation>
    </message>
    <message>
        <source>Rabatt</source>
        <translation>Discount</translation>
    </message>
    <message>
        <source>Zuschlag</source>
        <translation>Surcharge</translation>
    </message>
    <message>
        <source>Umsatzsteuer </source>
        <extracomment>Followed directly by the rate, for example 19,00%.</extracomment>
        <translation>VAT </translation>
    </message>
    <message>
        <source>Rechnungssumme</source>
        <translation>Total</translation>
    </message>
    <!-- Due-date and cash-discount sentences -->
    <message>
        <source>Dieses Angebot bleibt gültig bis </source>
        <extracomment>Followed by the date and a full stop.</extracomment>
        <translation>This quote is valid until </translation>
    </message>
    <message>
        <source>Dieses Angebot bleibt gültig bis</source>
        <translation>This quote is valid until</translation>
    </message>
    <message>
        <source>Der Rechnungsbetrag </source>
        <translation>The invoice amount </translation>
    </message>
    <message>
        <source>Der Honorarnoten-Betrag </source>
        <translation>The fee amount </translation>
    </message>
    <message>
        <source>Der Mahnungsbetrag </source>
        <translation>The outstanding amount </translation>
    </message>
    <message>
        <source> ist fällig am </source>
        <translation> is due on </translation>
    </message>
    <message>
        <source> (Zahlungseingang).</source>
        <translation> (payment to be received by this date).</translation>
    </message>
    <message>
        <source>HTML_TOKEN_SKONTO_SATZ</source>
        <extracomment>%1 last day of the discount period, %2 discount rate as a number without the percent sign, %3 discount amount, %4 amount payable after the discount.</extracomment>
        <translation>If paid by %1, a cash discount of %2% (%3) may be deducted; the amount payable is then %4.</translation>
    </message>
    <!-- Dunning letter texts (MAHNUNG_NUMMER_VOM: %1 the number, %2 the document date; MAHNUNG_TEXT_…: %1 that reference, %2 the due date) -->
    <message>
        <source>MAHNUNG_ANREDE</source>
        <translation>Dear Sir or Madam,</translation>
    </message>
    <message>
        <source>MAHNUNG_NUMMER_VOM</source>
        <translation>%1 dated %2</translation>
    </message>
    <message>
        <source>MAHNUNG_TEXT_RECHNUNG</source>
        <translation>Perhaps it has escaped your notice: our invoice no. %1 was due for payment on %2, but we have not yet received your payment. We kindly ask you to transfer the amount listed below by the date given.</translation>
    </message>
    <message>
        <source>MAHNUNG_TEXT_HONORARNOTE</source>
        <translation>Perhaps it has escaped your notice: our fee note no. %1 was due for payment on %2, but we have not yet received your payment. We kindly ask you to transfer the amount listed below by the date given.</translation>
    </message>
    <message>
        <source>MAHNUNG_TEXT_SCHLUSS</source>
        <translation>If you have already made the payment in the meantime, please disregard this letter.</translation>
    </message>
    <message>
        <source>MAHNUNG_GRUSSFORMEL</source>
        <translation>Kind regards</translation>
    </message>
    <!-- Dates block and editor date labels -->
    <message>
        <source>Datum</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>Angebots-Datum</source>
        <translation>Quote date</translation>
    </message>
    <message>
        <source>Rechnungs-Datum</source>
        <translation>Invoice date</translation>
    </message>
    <message>
        <source>Honorarnoten-Datum</source>
        <translation>Fee note date</translation>
    </message>
    <message>
        <source>Mahnungs-Datum</source>
        <translation>Reminder date</translation>
    </message>
    <message>
        <source>Leistungs-Datum</source>
        <translation>Date of service</translation>
    </message>
    <message>
        <source>Gültig bis</source>
        <translation>Valid until</translation>
    </message>
    <message>
        <source>Fällig am</source>
        <translation>Due on</translation>
    </message>
    <message>
        <source>Fälligkeits-Datum</source>
        <translation>Due date</translation>
    </message>
    <!-- Sender details in the sidebar and the header and footer bars -->
    <message>
        <source>Ums.St.-ID</source>
        <translation>VAT ID</translation>
    </message>
    <message>
        <source>Steuernr</source>
        <translation>Tax number</translation>
    </message>
    <message>
        <source>Bankverbindung</source>
        <translation>Bank details</translation>
    </message>
    <message>
        <source>Institut</source>
        <translation>Bank</translation>
    </message>
    <message>
        <source>IBAN</source>
        <translation>IBAN</translation>
    </message>
    <message>
        <source>BIC</source>
        <translation>BIC</translation>
    </message>
    <message>
        <source>PDF_EXPORT_SEITENNUMMER</source>
        <extracomment>Followed directly by the page number.</extracomment>
        <translation>Page </translation>
    </message>
    <!-- Document list -->
    <message>
        <source>RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_FAELLIGKEIT</source>
        <translation>Sorted by due date</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_EMPFAENGER</source>
        <translation>Sorted by recipient</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_RECHNUNGSDATUM</source>
        <translation>Sorted by document date</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_RECHNUNGSNUMMER</source>
        <translation>Sorted by number</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_ZAHLUNGSEINGANG</source>
        <translation>Sorted by payment date</translation>
    </message>
    <!-- Document list: type pop-up and help; navigation menu -->
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_ALLE</source>
        <translation>All document types</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_ANSCHREIBEN</source>
        <translation>Cover letters</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_ANGEBOT</source>
        <translation>Quotes</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_RECHNUNG</source>
        <translation>Invoices</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_HONORARNOTE</source>
        <translation>Fee notes</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_MAHNUNG</source>
        <translation>Dunning letters</translation>
    </message>
    <message>
        <source>HILFE_TEXT_RECHNUNGSLISTE</source>
        <translation>These are your documents. On the left you choose which ones you see: drafts, sent, due, paid or all; above the list you can narrow it to one document type. A click on the column header changes the sort order. A double click (or the Return key) opens a document for editing; sent documents stay as they were sent. Duplicate and Delete are in the context menu and on the row under the mouse pointer; the Delete key deletes the selected documents after asking. Click this note to close it.</translation>
    </message>
    <message>
        <source>NAVIGATION_ENTWUERFE</source>
        <translation>Drafts</translation>
    </message>
    <message>
        <source>NAVIGATION_VERSANDT</source>
        <translation>Sent</translation>
    </message>
    <message>
        <source>NAVIGATION_FAELLIG</source>
        <translation>Due</translation>
    </message>
    <message>
        <source>NAVIGATION_BEZAHLT</source>
        <translation>Paid</translation>
    </message>
    <message>
        <source>NAVIGATION_ALLE</source>
        <translation>All</translation>
    </message>
    <message>
        <source>NAVIGATION_EINSTELLUNGEN</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>NAVIGATION_HILFE</source>
        <translation>Help</translation>
    </message>
    <!-- Document view -->
    <message>
        <source>/pdf/waehleRechnung.pdf</source>
        <extracomment>Placeholder PDF shown while no document is selected, relative to the application's resource folder.</extracomment>
        <translation>/pdf/selectDocument.pdf</translation>
    </message>
    <message>
        <source>Wo soll Dein PDF Export gesichert werden?</source>
        <translation>Where would you like to save the PDF export?</translation>
    </message>
    <message>
        <source>TUTORIAL_LINK</source>
        <extracomment>Web address of the tutorial, opened in the browser.</extracomment>
        <translation>https://velmora-rechnungen.de/en/tutorial/</translation>
    </message>
    <message>
        <source>ANSICHT_VERSENDET</source>
        <translation>Sent</translation>
    </message>
    <message>
        <source>ANSICHT_TOOLTIP_VERSENDET</source>
        <translation>Mark as sent: the PDF is frozen and filed in the archive</translation>
    </message>
    <message>
        <source>ANSICHT_BEZAHLT</source>
        <translation>Paid</translation>
    </message>
    <message>
        <source>ANSICHT_TOOLTIP_BEZAHLT</source>
        <translation>Mark as paid; today is recorded as the payment date</translation>
    </message>
    <message>
        <source>ANSICHT_BEZAHLT_AM</source>
        <translation>Payment received on</translation>
    </message>
    <message>
        <source>ANSICHT_UNBEZAHLT</source>
        <translation>Mark as unpaid</translation>
    </message>
    <message>
        <source>ANSICHT_TOOLTIP_UNBEZAHLT</source>
        <translation>Take back the paid mark; the payment date is removed</translation>
    </message>
    <!-- Document view: confirmation before a document is marked sent -->
    <message>
        <source>ALERT_TITLE_VERSENDEN</source>
        <translation>Mark as sent?</translation>
    </message>
    <message>
        <source>ALERT_TEXT_VERSENDEN</source>
        <translation>The PDF is frozen as it is now and filed in the archive. Later changes no longer appear in it, and the document does not become a draft again.</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_VERSENDEN</source>
        <translation>Mark as Sent</translation>
    </message>
    <message>
        <source>ANSICHT_MAHNUNG</source>
        <translation>Create reminder</translation>
    </message>
    <message>
        <source>ANSICHT_TOOLTIP_MAHNUNG</source>
        <translation>Create a reminder for this due document as a draft</translation>
    </message>
    <message>
        <source>ANSICHT_ALS_PDF_SICHERN</source>
        <translation>Save as PDF</translation>
    </message>
    <message>
        <source>ANSICHT_DRUCKEN</source>
        <translation>Print</translation>
    </message>
    <message>
        <source>ANSICHT_WEBSEITE</source>
        <translation>More on the Velmora Rechnungen website</translation>
    </message>
    <message>
        <source>PRODUKT_WEBSEITE_LINK</source>
        <translation>https://velmora-rechnungen.de/en/</translation>
    </message>
    <message>
        <source>HILFE_TEXT_RECHNUNGSANSICHT</source>
        <translation>This is the chosen document as it will be printed. “Sent” freezes the PDF and files it in the archive; from then on the view always shows that PDF, and you can mark the document as paid and enter the payment date. Due documents offer a reminder. “Duplicate” creates a copy as a draft, “Save as PDF” and “Print” put the document out.</translation>
    </message>
    <!-- Editor tabs and their help texts -->
    <message>
        <source>POSTEN_TAB</source>
        <translation>Items</translation>
    </message>
    <message>
        <source>BETRAG_TAB</source>
        <translation>Amount</translation>
    </message>
    <message>
        <source>EMPFAENGER_TAB</source>
        <translation>Recipient</translation>
    </message>
    <message>
        <source>ABSENDER_TAB</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>TEXT_TAB</source>
        <translation>Texts</translation>
    </message>
    <message>
        <source>STATUS_TAB</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>HILFE_TEXT_POSTEN_TAB</source>
        <translation>Enter the items of the document here, each with its title, description, quantity and unit price. New items are numbered in order; the sum of all items is recalculated after every change.</translation>
    </message>
    <message>
        <source>HILFE_TEXT_BETRAG_TAB</source>
        <translation>Choose whether VAT is added to the total (gross) or not (net), and enter the VAT rate, discount, surcharge, cash discount with its period in days, and the currency. The total is recalculated at once.</translation>
    </message>
    <message>
        <source>HILFE_TEXT_EMPFAENGER_TAB</source>
        <translation>Choose the recipient of the document from the list or create a new one. Changes to the name and address apply to all documents of this recipient that have not been sent yet.</translation>
    </message>
    <message>
        <source>HILFE_TEXT_ABSENDER_TAB</source>
        <translation>Maintain your own details here: address, contact details, tax number, VAT ID and bank details. Drag your logo, signature and letterhead into the image fields as JPG, PNG or TIFF files; the letterhead must cover the full page width.</translation>
    </message>
    <message>
        <source>HILFE_TEXT_TEXT_TAB</source>
        <translation>The salutation, introduction and closing text of the document. The introduction appears before the items, the closing text after the due date and cash-discount notes.</translation>
    </message>
    <message>
        <source>HILFE_TEXT_STATUS_TAB</source>
        <translation>Choose the document type, language and layout, and set the dates of the document. The language decides all labels and dates in the PDF, independently of the language of the program.</translation>
    </message>
    <!-- Document editor: buttons, labels, columns, pop-up items and input hints -->
    <message>
        <source>BUTTON_TITLE_WEITER</source>
        <translation>Next</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_FERTIG</source>
        <translation>Done</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_NEUER_POSTEN</source>
        <translation>New item</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_POSTEN_LOESCHEN</source>
        <translation>Delete item</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_NEUER_EMPFAENGER</source>
        <translation>New recipient</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_EMPFAENGER_LOESCHEN</source>
        <translation>Delete recipient</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_NEUER_ABSENDER</source>
        <translation>New sender</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_ABSENDER_LOESCHEN</source>
        <translation>Delete sender</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_BILD_WAEHLEN</source>
        <translation>Choose image…</translation>
    </message>
    <message>
        <source>PANEL_TEXT_BILD_WAEHLEN</source>
        <translation>Which image file (JPG, PNG or TIFF) do you want to use?</translation>
    </message>
    <message>
        <source>EDITOR_BILD_HIERHER_ZIEHEN</source>
        <translation>Drag an image file here (JPG, PNG, TIFF)</translation>
    </message>
    <message>
        <source>EDITOR_BILD_ZU_GROSS</source>
        <translation>Image too large (more than 32 megapixels or 32 MB), please replace</translation>
    </message>
    <message>
        <source>EDITOR_HINWEIS_KEINE_ZAHL</source>
        <translation>This is not a valid number. The value is only taken once it has been corrected.</translation>
    </message>
    <message>
        <source>EDITOR_HINWEIS_KEINE_GANZZAHL</source>
        <translation>Please enter a whole number from 0 up. The value is only taken once it has been corrected.</translation>
    </message>
    <message>
        <source>EDITOR_PLATZHALTER_BEZEICHNUNG</source>
        <translation>What was delivered or done?</translation>
    </message>
    <message>
        <source>EDITOR_PLATZHALTER_BESCHREIBUNG</source>
        <translation>Details of the item (optional)</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_NUMMER</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_BEZEICHNUNG</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_BESCHREIBUNG</source>
        <translation>Description</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_ANZAHL</source>
        <translation>Quantity</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_EINZELPREIS</source>
        <translation>Unit price</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_GESAMT</source>
        <translation>Total</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_FIRMA</source>
        <translation>Company</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_NAME</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_ORT</source>
        <translation>Town</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_NUMMER</source>
        <translation>Number:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_POSTENSUMME</source>
        <translation>Sum of items:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_BESCHREIBUNG</source>
        <translation>Description of the selected item:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_BERECHNUNG</source>
        <translation>Calculation:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_NETTO</source>
        <translation>Net (without VAT)</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_BRUTTO</source>
        <translation>Gross (with VAT)</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_MWST</source>
        <translation>VAT rate (%):</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_RABATT</source>
        <translation>Discount (%):</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_ZUSCHLAG</source>
        <translation>Surcharge (%):</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_SKONTO</source>
        <translation>Cash discount (%):</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_SKONTOZEITRAUM</source>
        <translation>Cash discount period (days):</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_WAEHRUNG</source>
        <translation>Currency:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_RECHNUNGSSUMME</source>
        <translation>Total:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_FIRMA</source>
        <translation>Company:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_NAME</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_STRASSE</source>
        <translation>Street:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_PLZ</source>
        <translation>Postcode:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_ORT</source>
        <translation>Town:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_LAND</source>
        <translation>Country:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_EMAIL</source>
        <translation>Email:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_TELEFON</source>
        <translation>Phone:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_FAX</source>
        <translation>Fax:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_IBAN</source>
        <translation>IBAN:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_BIC</source>
        <translation>BIC:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_BANK</source>
        <translation>Bank:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_STEUERNUMMER</source>
        <translation>Tax number:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_UMSATZSTEUERID</source>
        <translation>VAT ID:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_LOGO</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_UNTERSCHRIFT</source>
        <translation>Signature</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_GESCHAEFTSPAPIER</source>
        <translation>Letterhead</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_GESCHAEFTSPAPIER_DRUCKEN</source>
        <translation>Print the letterhead</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_ANREDE</source>
        <translation>Salutation:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_RECHNUNGSTEXT</source>
        <translation>Text before the items:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_RECHNUNGSTEXT2</source>
        <translation>Closing text:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_DOKUMENTART</source>
        <translation>Document type:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_SPRACHE</source>
        <translation>Document language:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_LAYOUT</source>
        <translation>Layout:</translation>
    </message>
    <message>
        <source>EDITOR_ART_ANSCHREIBEN</source>
        <translation>Cover letter</translation>
    </message>
    <message>
        <source>EDITOR_ART_ANGEBOT</source>
        <translation>Quote</translation>
    </message>
    <message>
        <source>EDITOR_ART_RECHNUNG</source>
        <translation>Invoice</translation>
    </message>
    <message>
        <source>EDITOR_ART_HONORARNOTE</source>
        <translation>Fee note</translation>
    </message>
    <message>
        <source>EDITOR_ART_MAHNUNG</source>
        <translation>Reminder</translation>
    </message>
    <message>
        <source>EDITOR_SPRACHE_DEUTSCH</source>
        <translation>German</translation>
    </message>
    <message>
        <source>EDITOR_SPRACHE_ENGLISCH</source>
        <translation>English</translation>
    </message>
    <message>
        <source>EDITOR_LAYOUT_SEITENLEISTE</source>
        <translation>Sidebar</translation>
    </message>
    <message>
        <source>EDITOR_LAYOUT_KOPFLEISTE</source>
        <translation>Header bar</translation>
    </message>
    <message>
        <source>EDITOR_LAYOUT_FUSSLEISTE</source>
        <translation>Footer bar</translation>
    </message>
    <!-- Weekdays -->
    <message>
        <source>WOCHENTAG_MONTAG</source>
        <translation>Monday</translation>
    </message>
    <message>
        <source>WOCHENTAG_DIENSTAG</source>
        <translation>Tuesday</translation>
    </message>
    <message>
        <source>WOCHENTAG_MITTWOCH</source>
        <translation>Wednesday</translation>
    </message>
    <message>
        <source>WOCHENTAG_DONNERSTAG</source>
        <translation>Thursday</translation>
    </message>
    <message>
        <source>WOCHENTAG_FREITAG</source>
        <translation>Friday</translation>
    </message>
    <message>
        <source>WOCHENTAG_SAMSTAG</source>
        <translation>Saturday</translation>
    </message>
    <message>
        <source>WOCHENTAG_SONNTAG</source>
        <translation>Sunday</translation>
    </message>
    <!-- Due-document notifications -->
    <message>
        <source>Fälliges Dokument</source>
        <translation>Document due</translation>
    </message>
    <message>
        <source>Das Dokument: </source>
        <extracomment>Followed directly by the document number.</extracomment>
        <translation>The document </translation>
    </message>
    <message>
        <source>für: </source>
        <extracomment>Between the document number and the recipient's name.</extracomment>
        <translation> for </translation>
    </message>
    <message>
        <source>ist fällig!</source>
        <extracomment>Ends the text, directly after the number or the recipient's name.</extracomment>
        <translation> is due.</translation>
    </message>
    <!-- Alert titles -->
    <message>
        <source>ALERT_TITLE_ATTENTION</source>
        <translation>Attention</translation>
    </message>
    <message>
        <source>ALERT_TITLE_DATEN_WERDEN_GESICHERT</source>
        <translation>Saving your data</translation>
    </message>
    <message>
        <source>ALERT_TITLE_DELETE</source>
        <translation>Delete?</translation>
    </message>
    <message>
        <source>ALERT_TITLE_EXPORT</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>ALERT_TITLE_HINWEIS</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>ALERT_TITLE_PROBLEM</source>
        <translation>Problem</translation>
    </message>
    <message>
        <source>ALERT_TITLE_RECHNUNG_OEFFNEN_FUER_IMPORT</source>
        <translation>No document open</translation>
    </message>
    <message>
        <source>ALERT_TITLE_VERSANDTE_RECHNUNG_OEFFNEN</source>
        <translation>Document already sent</translation>
    </message>
    <!-- Alert texts -->
    <message>
        <source>ALERT_TEXT_ABSENDERBILD_ZU_GROSS</source>
        <translation>An image of the sender (logo, signature or letterhead) is larger than 32 megapixels or 32 MB, so the document cannot be shown. Replace it with a smaller one on the sender tab of the editor.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_APP_UNSUPPORTED</source>
        <translation>This version of Velmora Rechnungen is not approved for your operating system. The program will start, but some features may be missing or may not work correctly. Please check whether a suitable version of Velmora Rechnungen is available for your system.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_APP_SUPPORTED_UPTO_10_15</source>
        <translation>Velmora Rechnungen supports your operating system only up to version 10.15. Future versions of the program will require a newer system. Update your operating system to keep receiving updates; your data will be kept.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_BILD_ZU_GROSS</source>
        <translation>This image is too large. Please use an image of at most 32 megapixels (for example 4,000 × 8,000 pixels) and at most 32 MB.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_BUSINESSPAPER_IMPORT_WARNING</source>
        <translation>This image cannot be used as letterhead. The letterhead is the background of the whole page: use a JPG, PNG or TIFF image that is at least as wide as the selected page size (A4 or Letter).</translation>
    </message>
    <message>
        <source>ALERT_TEXT_DATEN_WERDEN_GESICHERT</source>
        <translation>Your data is being saved and synchronised right now. If you quit Velmora Rechnungen now, your latest changes may be lost or only transferred at the next start. It is best to wait a moment and then quit again.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_DELETE</source>
        <translation>Do you really want to delete the selected entries? This cannot be undone.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_DOKUMENT_ZU_GROSS</source>
        <translation>This document is too long to be shown or printed: it would run to more than 1,000 pages or more than 2,000,000 characters of text. Shorten its texts or spread its items over several documents.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_ICLOUD</source>
        <translation>Synchronisation could not be started. Please check your internet connection and that you are signed in to your cloud account, then try again later. Your data on this computer remains unchanged.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_IMAGETYPE_IMPORT_WARNING</source>
        <translation>This file format is not supported. Please use a JPG, PNG or TIFF image.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_REALLY_IMPORT_DATABASE</source>
        <translation>Importing deletes all documents, items, recipients and senders and replaces them with the contents of the backup. Synchronisation will be switched off, and Velmora Rechnungen will quit after the import. Do you want to continue?</translation>
    </message>
    <message>
        <source>ALERT_TEXT_RECHNUNG_OEFFNEN_FUER_IMPORT</source>
        <translation>To import items, first open the document that should receive them in the editor, then start the transfer again.</translation>
    </message>
    <message>
        <source>ALERT_TITLE_IMPORT_ABGELEHNT</source>
        <translation>Item not imported</translation>
    </message>
    <message>
        <source>ALERT_TEXT_IMPORT_STUNDEN_UNGUELTIG</source>
        <translation>The time tracker sent a duration that is not a number of seconds from 18 seconds to 1,000,000 hours. Nothing was changed.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_IMPORT_ERTRAEGE_UNGUELTIG</source>
        <translation>The time tracker sent earnings that are not an amount from 0 to 1,000,000,000,000. Nothing was changed.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_IMPORT_STEUERZEICHEN</source>
        <translation>A text from the time tracker contains a control character that does not belong there (such as a line break in the task, job, client or time span). Nothing was changed.</translation>
    </message>
    <message>
        <source>ALERT_TITLE_DATENORDNER_BELEGT</source>
        <translation>Data already in use</translation>
    </message>
    <message>
        <source>ALERT_TEXT_DATENORDNER_BELEGT</source>
        <translation>Another Velmora Rechnungen or a velmora-cli command is working with this data folder and does not answer. Quit it, then start the program again.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_UPDATE_DATABASE</source>
        <translation>The data in the cloud comes from a newer version of Velmora Rechnungen. Please update Velmora Rechnungen on this computer so that synchronisation can continue.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_VERSANDTE_RECHNUNG_OEFFNEN</source>
        <translation>This document has already been sent and can no longer be edited; its PDF stays exactly as it was sent. If you need to change something, duplicate the document and edit the copy.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_WHICH_DATABASE_TO_IMPORT</source>
        <translation>Choose the backup (file extension .fks) that you want to import.</translation>
    </message>
    <message>
        <source>DATABASE_EXPORT_PROBLEM</source>
        <translation>The automatic backup could not be created. Please check that there is enough free disk space on your computer. Your data itself is not affected; a new backup will be made at the next start.</translation>
    </message>
    <message>
        <source>DATABASE_IMPORT_PROBLEM</source>
        <translation>The selected file is not a usable Velmora Rechnungen backup (file extension .fks). Your data are unchanged. Choose a valid backup, for example the automatic backup from the last start.</translation>
    </message>
    <message>
        <source>DATABASE_IMPORT_NOT_UNPACKED</source>
        <translation>The backup could not be unpacked next to your data, for example because there is not enough disk space. Your data are unchanged.</translation>
    </message>
    <message>
        <source>DATABASE_IMPORT_NO_BACKUP</source>
        <translation>Your current data could not be backed up before the import. The import was cancelled; your data are unchanged.</translation>
    </message>
    <message>
        <source>DATABASE_IMPORT_FAILED</source>
        <translation>The backup could not be put in place. Your data as they were before the import are in the backup named below; import it to get them back.</translation>
    </message>
    <message>
        <source>PANEL_FILTER_DATENSICHERUNGEN</source>
        <translation>Backups</translation>
    </message>
    <message>
        <source>PANEL_FILTER_BILDER</source>
        <translation>Images</translation>
    </message>
    <message>
        <source>DATABASE_IMPORT_SUCCESSFUL</source>
        <translation>The backup has been imported. Velmora Rechnungen will now quit; the imported data will be available the next time you start it. Synchronisation is switched off and can be switched on again in the settings.</translation>
    </message>
    <!-- Store failures -->
    <message>
        <source>Failed to initialize the application's saved data</source>
        <translation>Failed to initialize the application's saved data</translation>
    </message>
    <message>
        <source>There was an error creating or loading the application's saved data.</source>
        <translation>There was an error creating or loading the application's saved data.</translation>
    </message>
    <message>
        <source>Expected a folder to store application data, found a file </source>
        <extracomment>Followed by the path of the file and a full stop.</extracomment>
        <translation>Expected a folder to store application data, found a file </translation>
    </message>
    <!-- Object store errors (%1 the path of the store file, %2 the reason reported by the database) -->
    <message>
        <source>STORE_ERROR_CANNOT_OPEN</source>
        <translation>The database “%1” could not be opened (%2). Please check that its folder exists and is writable.</translation>
    </message>
    <message>
        <source>STORE_ERROR_NOT_A_STORE</source>
        <translation>The file “%1” is not a Velmora Rechnungen database (%2). It has not been changed.</translation>
    </message>
    <message>
        <source>STORE_ERROR_DAMAGED</source>
        <translation>The database “%1” is damaged (%2). You can restore your data by importing a backup in the settings.</translation>
    </message>
    <message>
        <source>STORE_ERROR_NEWER_VERSION</source>
        <translation>The database “%1” was created by a newer version of Velmora Rechnungen (database version %2). Please update Velmora Rechnungen to open it.</translation>
    </message>
    <message>
        <source>STORE_ERROR_SAVE_FAILED</source>
        <translation>Your changes could not be saved to the database “%1” (%2). They are kept until saving succeeds; please check that there is enough free disk space.</translation>
    </message>
    <!-- Buttons -->
    <message>
        <source>BUTTON_TITLE_ABBRECHEN</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_CLOSE</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_DELETE</source>
        <translation>Delete</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_DUPLIZIEREN</source>
        <translation>Duplicate</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_TROTZDEMBEENDEN</source>
        <translation>Quit Anyway</translation>
    </message>
    <message>
        <source>MENU_DATEI</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>MENU_SICHERN</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>MENU_DATENSICHERUNG_JETZT</source>
        <translation>&amp;Back Up Now</translation>
    </message>
    <message>
        <source>MENU_DATENBANK_IMPORTIEREN</source>
        <translation>&amp;Import Database…</translation>
    </message>
    <message>
        <source>MENU_BEENDEN</source>
        <translation>&amp;Quit</translation>
    </message>
    <message>
        <source>SPALTE_NUMMER</source>
        <translation>Number</translation>
    </message>
    <message>
        <source>SPALTE_EMPFAENGER</source>
        <translation>Recipient</translation>
    </message>
    <message>
        <source>SPALTE_STATUS</source>
        <translation>State</translation>
    </message>
    <message>
        <source>SPALTE_FAELLIG</source>
        <translation>Due</translation>
    </message>
    <message>
        <source>SPALTE_SUMME</source>
        <translation>Total</translation>
    </message>
    <message>
        <source>STATUS_ENTWURF</source>
        <translation>Draft</translation>
    </message>
    <message>
        <source>STATUS_VERSENDET</source>
        <translation>Sent</translation>
    </message>
    <message>
        <source>STATUS_FAELLIG</source>
        <translation>Due</translation>
    </message>
    <message>
        <source>STATUS_BEZAHLT</source>
        <translation>Paid</translation>
    </message>
    <message>
        <source>HAUPTFENSTER_OFFENES_DOKUMENT</source>
        <translation>Items of the selected document (imported items are added here)</translation>
    </message>
    <message>
        <source>STATUS_DATENSICHERUNG_LAEUFT</source>
        <translation>Creating backup…</translation>
    </message>
    <message>
        <source>STATUS_DATENSICHERUNG_FERTIG</source>
        <translation>Backup saved: </translation>
    </message>
    <message>
        <source>STATUS_IMPORT_LAEUFT</source>
        <translation>Importing database…</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_ANZEIGEN</source>
        <extracomment>The click action of a due-document notification, where the desktop lists actions.</extracomment>
        <translation>Show</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_TITEL</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_DOKUMENTE_IN_A4</source>
        <translation>Documents in A4 (otherwise US Letter)</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_KEINE_FAELLIGKEITS_MITTEILUNGEN</source>
        <translation>No notifications for due documents</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_SYNC</source>
        <translation>Sync data between my computers</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_MAHNUNG_ZAHLUNGSFRIST</source>
        <translation>Payment period of a reminder:</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_TAGE_EINHEIT</source>
        <translation> days</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_GRUPPE_DOKUMENTE</source>
        <translation>Documents</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_GRUPPE_FARBE</source>
        <translation>Colour</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_GRUPPE_DATENBANK</source>
        <translation>Database</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_IMPORT_HINWEIS</source>
        <translation>A backup (.fks) replaces all current data. Velmora Rechnungen quits afterwards.</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_IMPORT_BUTTON</source>
        <translation>Import database …</translation>
    </message>
    <message>
        <source>FARBE_GRAU</source>
        <translation>Grey</translation>
    </message>
    <message>
        <source>FARBE_DUNKELGRAU</source>
        <translation>Dark grey</translation>
    </message>
    <message>
        <source>FARBE_ROT</source>
        <translation>Red</translation>
    </message>
    <message>
        <source>FARBE_ORANGE</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>FARBE_GELB</source>
        <translation>Yellow</translation>
    </message>
    <message>
        <source>FARBE_GRUEN</source>
        <translation>Green</translation>
    </message>
    <message>
        <source>FARBE_BLAU</source>
        <translation>Blue</translation>
    </message>
    <message>
        <source>FARBE_VIOLETT</source>
        <translation>Purple</translation>
    </message>
    <message>
        <source>MENU_NEUES_DOKUMENT</source>
        <translation>&amp;New Document</translation>
    </message>
    <message>
        <source>MENU_NEUES_DOKUMENT_BEARBEITEN</source>
        <translation>New Document in &amp;Editor …</translation>
    </message>
    <message>
        <source>MENU_ALS_PDF_SICHERN</source>
        <translation>Save as &amp;PDF …</translation>
    </message>
    <message>
        <source>MENU_DRUCKEN</source>
        <translation>&amp;Print …</translation>
    </message>
    <message>
        <source>MENU_EINSTELLUNGEN</source>
        <translation>S&amp;ettings …</translation>
    </message>
    <message>
        <source>MENU_HILFE</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>MENU_HILFE_ANZEIGEN</source>
        <translation>Show or Hide &amp;Help</translation>
    </message>
    <message>
        <source>MENU_TUTORIAL</source>
        <translation>&amp;Tutorial on the Web</translation>
    </message>
</context>
</TS>
