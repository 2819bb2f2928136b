<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="de_DE">
<context>
    <name>Velmora</name>
    <!-- Document number labels and number texts -->
    <message>
        <source>Anschreiben:</source>
        <translation>Anschreiben:</translation>
    </message>
    <message>
        <source>Angebot:</source>
        <translation>Angebot:</translation>
    </message>
    <message>
        <source>Rechnung:</source>
        <translation>Rechnung:</translation>
    </message>
    <message>
        <source>Honorarnote:</source>
        <translation>Honorarnote:</translation>
    </message>
    <message>
        <source>Mahnung:</source>
        <translation>Mahnung:</translation>
    </message>
    <message>
        <source>Kopie</source>
        <extracomment>Appended directly to the source number of a duplicate; carries its own leading blank.</extracomment>
        <translation> Kopie</translation>
    </message>
    <message>
        <source>Mahnung für: </source>
        <extracomment>Put in front of the source number of a dunning letter.</extracomment>
        <translation>Mahnung für: </translation>
    </message>
    <!-- Names of new senders and recipients -->
    <message>
        <source> Neuer Absender</source>
        <translation> Neuer Absender</translation>
    </message>
    <message>
        <source> Neuer Empfänger</source>
        <translation> Neuer Empfänger</translation>
    </message>
    <message>
        <source>Neuer Absender</source>
        <translation>Neuer Absender</translation>
    </message>
    <message>
        <source>Neuer Empfänger</source>
        <translation>Neuer Empfänger</translation>
    </message>
    <!-- Default texts of a new item -->
    <message>
        <source>Bezeichnung</source>
        <translation>Bezeichnung</translation>
    </message>
    <message>
        <source>Beschreibung</source>
        <extracomment>Also the heading of the first column of the item table.</extracomment>
        <translation>Beschreibung</translation>
    </message>
    <!-- Item table and totals -->
    <message>
        <source>Anzahl</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Betrag</source>
        <translation>Einzelpreis</translation>
    </message>
    <message>
        <source>Summe</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Zwischensumme</source>
        <translation>Zwischensumme</translation>
    </message>
    <message>
        <source>Rabatt</source>
        <translation>Rabatt</translation>
    </message>
    <message>
        <source>Zuschlag</source>
        <translation>Zuschlag</translation>
    </message>
    <message>
        <source>Umsatzsteuer </source>
        <extracomment>Followed directly by the rate, for example 19,00%.</extracomment>
        <translation>Umsatzsteuer </translation>
    </message>
    <message>
        <source>Rechnungssumme</source>
        <translation>Gesamtsumme</translation>
    </message>
    <!-- Due-date and cash-discount sentences -->
    <message>
        <source>Dieses Angebot bleibt gültig bis </source>
        <extracomment>Followed by the date and a full stop.</extracomment>
        <translation>Dieses Angebot bleibt gültig bis </translation>
    </message>
    <message>
        <source>Dieses Angebot bleibt gültig bis</source>
        <translation>Dieses Angebot bleibt gültig bis</translation>
    </message>
    <message>
        <source>Der Rechnungsbetrag </source>
        <translation>Der Rechnungsbetrag </translation>
    </message>
    <message>
        <source>Der Honorarnoten-Betrag </source>
        <translation>Der Honorarbetrag </translation>
    </message>
    <message>
        <source>Der Mahnungsbetrag </source>
        <translation>Der offene Betrag </translation>
    </message>
    <message>
        <source> ist fällig am </source>
        <translation> ist fällig am </translation>
    </message>
    <message>
        <source> (Zahlungseingang).</source>
        <translation> (Zahlungseingang).</translation>
    </message>
    <message>
        <source>HTML_TOKEN_SKONTO_SATZ</source>
        <extracomment>%1 last day of the discount period, %2 discount rate as a number without the percent sign, %3 discount amount, %4 amount payable after the discount.</extracomment>
        <translation>Bei Zahlung bis zum %1 können %2% Skonto (%3) abgezogen werden; der Zahlbetrag beträgt dann %4.</translation>
    </message>
    <!-- Dunning letter texts (MAHNUNG_NUMMER_VOM: %1 the number, %2 the document date; MAHNUNG_TEXT_…: %1 that reference, %2 the due date) -->
    <message>
        <source>MAHNUNG_ANREDE</source>
        <translation>Sehr geehrte Damen und Herren,</translation>
    </message>
    <message>
        <source>MAHNUNG_NUMMER_VOM</source>
        <translation>%1 vom %2</translation>
    </message>
    <message>
        <source>MAHNUNG_TEXT_RECHNUNG</source>
        <translation>sicher ist es Ihrer Aufmerksamkeit entgangen: Unsere Rechnung Nr. %1 war am %2 zur Zahlung fällig, ein Zahlungseingang ist bei uns jedoch noch nicht verbucht. Wir bitten Sie, den unten aufgeführten Betrag bis zum genannten Datum zu überweisen.</translation>
    </message>
    <message>
        <source>MAHNUNG_TEXT_HONORARNOTE</source>
        <translation>sicher ist es Ihrer Aufmerksamkeit entgangen: Unsere Honorarnote Nr. %1 war am %2 zur Zahlung fällig, ein Zahlungseingang ist bei uns jedoch noch nicht verbucht. Wir bitten Sie, den unten aufgeführten Betrag bis zum genannten Datum zu überweisen.</translation>
    </message>
    <message>
        <source>MAHNUNG_TEXT_SCHLUSS</source>
        <translation>Sollten Sie die Zahlung inzwischen veranlasst haben, betrachten Sie dieses Schreiben bitte als gegenstandslos.</translation>
    </message>
    <message>
        <source>MAHNUNG_GRUSSFORMEL</source>
        <translation>Mit freundlichen Grüßen</translation>
    </message>
    <!-- Dates block and editor date labels -->
    <message>
        <source>Datum</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Angebots-Datum</source>
        <translation>Angebotsdatum</translation>
    </message>
    <message>
        <source>Rechnungs-Datum</source>
        <translation>Rechnungsdatum</translation>
    </message>
    <message>
        <source>Honorarnoten-Datum</source>
        <translation>Datum der Honorarnote</translation>
    </message>
    <message>
        <source>Mahnungs-Datum</source>
        <translation>Mahnungsdatum</translation>
    </message>
    <message>
        <source>Leistungs-Datum</source>
        <translation>Leistungsdatum</translation>
    </message>
    <message>
        <source>Gültig bis</source>
        <translation>Gültig bis</translation>
    </message>
    <message>
        <source>Fällig am</source>
        <translation>Fällig am</translation>
    </message>
    <message>
        <source>Fälligkeits-Datum</source>
        <translation>Fälligkeitsdatum</translation>
    </message>
    <!-- Sender details in the sidebar and the header and footer bars -->
    <message>
        <source>Ums.St.-ID</source>
        <translation>USt-IdNr.</translation>
    </message>
    <message>
        <source>Steuernr</source>
        <translation>Steuernummer</translation>
    </message>
    <message>
        <source>Bankverbindung</source>
        <translation>Bankverbindung</translation>
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
        <translation>Seite </translation>
    </message>
    <!-- Document list -->
    <message>
        <source>RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_FAELLIGKEIT</source>
        <translation>Sortiert nach Fälligkeit</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_EMPFAENGER</source>
        <translation>Sortiert nach Empfänger</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_RECHNUNGSDATUM</source>
        <translation>Sortiert nach Dokumentdatum</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_RECHNUNGSNUMMER</source>
        <translation>Sortiert nach Nummer</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_SORTIERUNG_TOOLTIP_ZAHLUNGSEINGANG</source>
        <translation>Sortiert nach Zahlungseingang</translation>
    </message>
    <!-- Document list: type pop-up and help; navigation menu -->
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_ALLE</source>
        <translation>Alle Dokumentarten</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_ANSCHREIBEN</source>
        <translation>Anschreiben</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_ANGEBOT</source>
        <translation>Angebote</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_RECHNUNG</source>
        <translation>Rechnungen</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_HONORARNOTE</source>
        <translation>Honorarnoten</translation>
    </message>
    <message>
        <source>RECHNUNGSLISTE_DOKUMENTART_MAHNUNG</source>
        <translation>Mahnungen</translation>
    </message>
    <message>
        <source>HILFE_TEXT_RECHNUNGSLISTE</source>
        <translation>Hier stehen deine Dokumente. Links wählst du, welche du siehst: Entwürfe, versendete, fällige, bezahlte oder alle; oben schränkst du die Liste auf eine Dokumentart ein. Ein Klick auf den Spaltenkopf wechselt die Sortierung. Ein Doppelklick (oder die Eingabetaste) öffnet ein Dokument zum Bearbeiten; versendete Dokumente bleiben unverändert. Duplizieren und Löschen findest du im Kontextmenü und auf der Zeile unter dem Mauszeiger; die Entf-Taste löscht die ausgewählten Dokumente nach einer Rückfrage. Klicke auf diesen Hinweis, um ihn zu schließen.</translation>
    </message>
    <message>
        <source>NAVIGATION_ENTWUERFE</source>
        <translation>Entwürfe</translation>
    </message>
    <message>
        <source>NAVIGATION_VERSANDT</source>
        <translation>Versendet</translation>
    </message>
    <message>
        <source>NAVIGATION_FAELLIG</source>
        <translation>Fällig</translation>
    </message>
    <message>
        <source>NAVIGATION_BEZAHLT</source>
        <translation>Bezahlt</translation>
    </message>
    <message>
        <source>NAVIGATION_ALLE</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>NAVIGATION_EINSTELLUNGEN</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>NAVIGATION_HILFE</source>
        <translation>Hilfe</translation>
    </message>
    <!-- Document view -->
    <message>
        <source>/pdf/waehleRechnung.pdf</source>
        <extracomment>Placeholder PDF shown while no document is selected, relative to the application's resource folder.</extracomment>
        <translation>/pdf/waehleRechnung.pdf</translation>
    </message>
    <message>
        <source>Wo soll Dein PDF Export gesichert werden?</source>
        <translation>Wo möchtest du den PDF-Export speichern?</translation>
    </message>
    <message>
        <source>TUTORIAL_LINK</source>
        <extracomment>Web address of the tutorial, opened in the browser.</extracomment>
        <translation>https://velmora-rechnungen.de/anleitung/</translation>
    </message>
    <message>
        <source>ANSICHT_VERSENDET</source>
        <translation>Versendet</translation>
    </message>
    <message>
        <source>ANSICHT_TOOLTIP_VERSENDET</source>
        <translation>Als versendet markieren: das PDF wird eingefroren und im Archiv abgelegt</translation>
    </message>
    <message>
        <source>ANSICHT_BEZAHLT</source>
        <translation>Bezahlt</translation>
    </message>
    <message>
        <source>ANSICHT_TOOLTIP_BEZAHLT</source>
        <translation>Als bezahlt markieren; der Zahlungseingang wird mit dem heutigen Datum vermerkt</translation>
    </message>
    <message>
        <source>ANSICHT_BEZAHLT_AM</source>
        <translation>Zahlungseingang am</translation>
    </message>
    <message>
        <source>ANSICHT_UNBEZAHLT</source>
        <translation>Als unbezahlt markieren</translation>
    </message>
    <message>
        <source>ANSICHT_TOOLTIP_UNBEZAHLT</source>
        <translation>Die Markierung als bezahlt zurücknehmen; das Zahlungsdatum wird entfernt</translation>
    </message>
    <!-- Document view: confirmation before a document is marked sent -->
    <message>
        <source>ALERT_TITLE_VERSENDEN</source>
        <translation>Als versendet markieren?</translation>
    </message>
    <message>
        <source>ALERT_TEXT_VERSENDEN</source>
        <translation>Das PDF wird in seinem jetzigen Stand eingefroren und archiviert. Spätere Änderungen erscheinen nicht mehr darin, und das Dokument wird nicht wieder zum Entwurf.</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_VERSENDEN</source>
        <translation>Als versendet markieren</translation>
    </message>
    <message>
        <source>ANSICHT_MAHNUNG</source>
        <translation>Mahnung erstellen</translation>
    </message>
    <message>
        <source>ANSICHT_TOOLTIP_MAHNUNG</source>
        <translation>Eine Mahnung zu diesem fälligen Dokument als Entwurf anlegen</translation>
    </message>
    <message>
        <source>ANSICHT_ALS_PDF_SICHERN</source>
        <translation>Als PDF sichern</translation>
    </message>
    <message>
        <source>ANSICHT_DRUCKEN</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>ANSICHT_WEBSEITE</source>
        <translation>Mehr auf der Webseite von Velmora Rechnungen</translation>
    </message>
    <message>
        <source>PRODUKT_WEBSEITE_LINK</source>
        <translation>https://velmora-rechnungen.de/</translation>
    </message>
    <message>
        <source>HILFE_TEXT_RECHNUNGSANSICHT</source>
        <translation>Hier siehst du das gewählte Dokument so, wie es gedruckt wird. Mit „Versendet“ frierst du das PDF ein und legst es im Archiv ab; danach zeigt die Ansicht immer dieses PDF, und du kannst das Dokument als bezahlt markieren und das Zahlungsdatum eintragen. Zu fälligen Dokumenten kannst du eine Mahnung erstellen. „Duplizieren“ legt eine Kopie als Entwurf an, „Als PDF sichern“ und „Drucken“ geben das Dokument aus.</translation>
    </message>
    <!-- Editor tabs and their help texts -->
    <message>
        <source>POSTEN_TAB</source>
        <translation>Posten</translation>
    </message>
    <message>
        <source>BETRAG_TAB</source>
        <translation>Betrag</translation>
    </message>
    <message>
        <source>EMPFAENGER_TAB</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>ABSENDER_TAB</source>
        <translation>Absender</translation>
    </message>
    <message>
        <source>TEXT_TAB</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>STATUS_TAB</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>HILFE_TEXT_POSTEN_TAB</source>
        <translation>Hier erfasst du die Posten des Dokuments mit Bezeichnung, Beschreibung, Anzahl und Einzelpreis. Neue Posten werden fortlaufend nummeriert; die Summe aller Posten wird nach jeder Änderung neu berechnet.</translation>
    </message>
    <message>
        <source>HILFE_TEXT_BETRAG_TAB</source>
        <translation>Lege fest, ob die Umsatzsteuer zur Summe hinzugerechnet wird (brutto) oder nicht (netto), und trage Steuersatz, Rabatt, Zuschlag, Skonto mit Skontofrist in Tagen sowie die Währung ein. Die Gesamtsumme wird sofort neu berechnet.</translation>
    </message>
    <message>
        <source>HILFE_TEXT_EMPFAENGER_TAB</source>
        <translation>Wähle den Empfänger des Dokuments aus der Liste oder lege einen neuen an. Änderungen an Name und Adresse gelten für alle Dokumente dieses Empfängers, die noch nicht versendet wurden.</translation>
    </message>
    <message>
        <source>HILFE_TEXT_ABSENDER_TAB</source>
        <translation>Hier pflegst du deine eigenen Angaben: Adresse, Kontaktdaten, Steuernummer, USt-IdNr. und Bankverbindung. Logo, Unterschrift und Geschäftspapier ziehst du als Bild (JPG, PNG oder TIFF) in die Bildfelder; das Geschäftspapier muss die ganze Seitenbreite abdecken.</translation>
    </message>
    <message>
        <source>HILFE_TEXT_TEXT_TAB</source>
        <translation>Anrede, Einleitungstext und Schlusstext des Dokuments. Der Einleitungstext steht vor den Posten, der Schlusstext nach den Hinweisen zu Fälligkeit und Skonto.</translation>
    </message>
    <message>
        <source>HILFE_TEXT_STATUS_TAB</source>
        <translation>Wähle Dokumentart, Sprache und Layout und lege die Daten des Dokuments fest. Die Sprache bestimmt alle Beschriftungen und Datumsangaben im PDF, unabhängig von der Sprache des Programms.</translation>
    </message>
    <!-- Document editor: buttons, labels, columns, pop-up items and input hints -->
    <message>
        <source>BUTTON_TITLE_WEITER</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_FERTIG</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_NEUER_POSTEN</source>
        <translation>Neuer Posten</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_POSTEN_LOESCHEN</source>
        <translation>Posten löschen</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_NEUER_EMPFAENGER</source>
        <translation>Neuer Empfänger</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_EMPFAENGER_LOESCHEN</source>
        <translation>Empfänger löschen</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_NEUER_ABSENDER</source>
        <translation>Neuer Absender</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_ABSENDER_LOESCHEN</source>
        <translation>Absender löschen</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_BILD_WAEHLEN</source>
        <translation>Bild wählen …</translation>
    </message>
    <message>
        <source>PANEL_TEXT_BILD_WAEHLEN</source>
        <translation>Welche Bilddatei (JPG, PNG oder TIFF) soll übernommen werden?</translation>
    </message>
    <message>
        <source>EDITOR_BILD_HIERHER_ZIEHEN</source>
        <translation>Bilddatei hierher ziehen (JPG, PNG, TIFF)</translation>
    </message>
    <message>
        <source>EDITOR_BILD_ZU_GROSS</source>
        <translation>Bild zu groß (mehr als 32 Megapixel oder 32 MB), bitte ersetzen</translation>
    </message>
    <message>
        <source>EDITOR_HINWEIS_KEINE_ZAHL</source>
        <translation>Das ist keine gültige Zahl. Der Wert wird erst übernommen, wenn er korrigiert ist.</translation>
    </message>
    <message>
        <source>EDITOR_HINWEIS_KEINE_GANZZAHL</source>
        <translation>Bitte eine ganze Zahl ab 0 eingeben. Der Wert wird erst übernommen, wenn er korrigiert ist.</translation>
    </message>
    <message>
        <source>EDITOR_PLATZHALTER_BEZEICHNUNG</source>
        <translation>Was wurde geliefert oder geleistet?</translation>
    </message>
    <message>
        <source>EDITOR_PLATZHALTER_BESCHREIBUNG</source>
        <translation>Einzelheiten zum Posten (optional)</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_NUMMER</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_BEZEICHNUNG</source>
        <translation>Bezeichnung</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_BESCHREIBUNG</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_ANZAHL</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_EINZELPREIS</source>
        <translation>Einzelpreis</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_GESAMT</source>
        <translation>Gesamt</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_FIRMA</source>
        <translation>Firma</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_NAME</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>EDITOR_SPALTE_ORT</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_NUMMER</source>
        <translation>Nummer:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_POSTENSUMME</source>
        <translation>Summe der Posten:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_BESCHREIBUNG</source>
        <translation>Beschreibung des gewählten Postens:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_BERECHNUNG</source>
        <translation>Berechnung:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_NETTO</source>
        <translation>Netto (ohne Umsatzsteuer)</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_BRUTTO</source>
        <translation>Brutto (mit Umsatzsteuer)</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_MWST</source>
        <translation>Umsatzsteuersatz (%):</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_RABATT</source>
        <translation>Rabatt (%):</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_ZUSCHLAG</source>
        <translation>Zuschlag (%):</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_SKONTO</source>
        <translation>Skonto (%):</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_SKONTOZEITRAUM</source>
        <translation>Skontofrist (Tage):</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_WAEHRUNG</source>
        <translation>Währung:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_RECHNUNGSSUMME</source>
        <translation>Gesamtsumme:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_FIRMA</source>
        <translation>Firma:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_NAME</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_STRASSE</source>
        <translation>Straße:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_PLZ</source>
        <translation>PLZ:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_ORT</source>
        <translation>Ort:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_LAND</source>
        <translation>Land:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_EMAIL</source>
        <translation>E-Mail:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_TELEFON</source>
        <translation>Telefon:</translation>
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
        <translation>Steuernummer:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_UMSATZSTEUERID</source>
        <translation>USt-IdNr.:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_LOGO</source>
        <translation>Logo</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_UNTERSCHRIFT</source>
        <translation>Unterschrift</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_GESCHAEFTSPAPIER</source>
        <translation>Geschäftspapier</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_GESCHAEFTSPAPIER_DRUCKEN</source>
        <translation>Geschäftspapier mitdrucken</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_ANREDE</source>
        <translation>Anrede:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_RECHNUNGSTEXT</source>
        <translation>Text vor den Posten:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_RECHNUNGSTEXT2</source>
        <translation>Schlusstext:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_DOKUMENTART</source>
        <translation>Dokumentart:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_SPRACHE</source>
        <translation>Sprache des Dokuments:</translation>
    </message>
    <message>
        <source>EDITOR_LABEL_LAYOUT</source>
        <translation>Layout:</translation>
    </message>
    <message>
        <source>EDITOR_ART_ANSCHREIBEN</source>
        <translation>Anschreiben</translation>
    </message>
    <message>
        <source>EDITOR_ART_ANGEBOT</source>
        <translation>Angebot</translation>
    </message>
    <message>
        <source>EDITOR_ART_RECHNUNG</source>
        <translation>Rechnung</translation>
    </message>
    <message>
        <source>EDITOR_ART_HONORARNOTE</source>
        <translation>Honorarnote</translation>
    </message>
    <message>
        <source>EDITOR_ART_MAHNUNG</source>
        <translation>Mahnung</translation>
    </message>
    <message>
        <source>EDITOR_SPRACHE_DEUTSCH</source>
        <translation>Deutsch</translation>
    </message>
    <message>
        <source>EDITOR_SPRACHE_ENGLISCH</source>
        <translation>Englisch</translation>
    </message>
    <message>
        <source>EDITOR_LAYOUT_SEITENLEISTE</source>
        <translation>Seitenleiste</translation>
    </message>
    <message>
        <source>EDITOR_LAYOUT_KOPFLEISTE</source>
        <translation>Kopfleiste</translation>
    </message>
    <message>
        <source>EDITOR_LAYOUT_FUSSLEISTE</source>
        <translation>Fußleiste</translation>
    </message>
    <!-- Weekdays -->
    <message>
        <source>WOCHENTAG_MONTAG</source>
        <translation>Montag</translation>
    </message>
    <message>
        <source>WOCHENTAG_DIENSTAG</source>
        <translation>Dienstag</translation>
    </message>
    <message>
        <source>WOCHENTAG_MITTWOCH</source>
        <translation>Mittwoch</translation>
    </message>
    <message>
        <source>WOCHENTAG_DONNERSTAG</source>
        <translation>Donnerstag</translation>
    </message>
    <message>
        <source>WOCHENTAG_FREITAG</source>
        <translation>Freitag</translation>
    </message>
    <message>
        <source>WOCHENTAG_SAMSTAG</source>
        <translation>Samstag</translation>
    </message>
    <message>
        <source>WOCHENTAG_SONNTAG</source>
        <translation>Sonntag</translation>
    </message>
    <!-- Due-document notifications -->
    <message>
        <source>Fälliges Dokument</source>
        <translation>Fälliges Dokument</translation>
    </message>
    <message>
        <source>Das Dokument: </source>
        <extracomment>Followed directly by the document number.</extracomment>
        <translation>Das Dokument </translation>
    </message>
    <message>
        <source>für: </source>
        <extracomment>Between the document number and the recipient's name.</extracomment>
        <translation> für </translation>
    </message>
    <message>
        <source>ist fällig!</source>
        <extracomment>Ends the text, directly after the number or the recipient's name.</extracomment>
        <translation> ist fällig.</translation>
    </message>
    <!-- Alert titles -->
    <message>
        <source>ALERT_TITLE_ATTENTION</source>
        <translation>Achtung</translation>
    </message>
    <message>
        <source>ALERT_TITLE_DATEN_WERDEN_GESICHERT</source>
        <translation>Daten werden gesichert</translation>
    </message>
    <message>
        <source>ALERT_TITLE_DELETE</source>
        <translation>Wirklich löschen?</translation>
    </message>
    <message>
        <source>ALERT_TITLE_EXPORT</source>
        <translation>Datensicherung</translation>
    </message>
    <message>
        <source>ALERT_TITLE_HINWEIS</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>ALERT_TITLE_PROBLEM</source>
        <translation>Problem</translation>
    </message>
    <message>
        <source>ALERT_TITLE_RECHNUNG_OEFFNEN_FUER_IMPORT</source>
        <translation>Kein Dokument geöffnet</translation>
    </message>
    <message>
        <source>ALERT_TITLE_VERSANDTE_RECHNUNG_OEFFNEN</source>
        <translation>Dokument bereits versendet</translation>
    </message>
    <!-- Alert texts -->
    <message>
        <source>ALERT_TEXT_ABSENDERBILD_ZU_GROSS</source>
        <translation>Ein Bild des Absenders (Logo, Unterschrift oder Geschäftspapier) ist größer als 32 Megapixel oder 32 MB, deshalb kann das Dokument nicht angezeigt werden. Ersetze das Bild im Editor auf der Seite des Absenders durch ein kleineres.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_APP_UNSUPPORTED</source>
        <translation>Diese Version von Velmora Rechnungen ist für dein Betriebssystem nicht freigegeben. Das Programm startet, einzelne Funktionen können aber fehlen oder nicht richtig arbeiten. Bitte prüfe, ob es eine passende Version von Velmora Rechnungen für dein System gibt.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_APP_SUPPORTED_UPTO_10_15</source>
        <translation>Velmora Rechnungen unterstützt dein Betriebssystem nur noch bis einschließlich Version 10.15. Künftige Versionen des Programms setzen ein neueres System voraus. Aktualisiere dein Betriebssystem, um weiterhin Updates zu erhalten; deine Daten bleiben dabei erhalten.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_BILD_ZU_GROSS</source>
        <translation>Dieses Bild ist zu groß. Bitte verwende ein Bild mit höchstens 32 Megapixeln (zum Beispiel 4.000 × 8.000 Pixel) und höchstens 32 MB.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_BUSINESSPAPER_IMPORT_WARNING</source>
        <translation>Dieses Bild kann nicht als Geschäftspapier verwendet werden. Das Geschäftspapier ist der Hintergrund der ganzen Seite: Verwende ein Bild im Format JPG, PNG oder TIFF, das mindestens so breit ist wie die eingestellte Seitengröße (A4 oder Letter).</translation>
    </message>
    <message>
        <source>ALERT_TEXT_DATEN_WERDEN_GESICHERT</source>
        <translation>Deine Daten werden gerade gesichert und abgeglichen. Wenn du Velmora Rechnungen jetzt beendest, können die letzten Änderungen verloren gehen oder erst beim nächsten Start übertragen werden. Warte am besten einen Moment und beende das Programm dann erneut.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_DELETE</source>
        <translation>Möchtest du die ausgewählten Einträge wirklich löschen? Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_DOKUMENT_ZU_GROSS</source>
        <translation>Dieses Dokument ist zu lang, um angezeigt oder gedruckt zu werden: Es hätte mehr als 1.000 Seiten oder mehr als 2.000.000 Zeichen Text. Kürze die Texte oder verteile die Posten auf mehrere Dokumente.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_ICLOUD</source>
        <translation>Die Synchronisation konnte nicht gestartet werden. Bitte prüfe deine Internetverbindung und die Anmeldung bei deinem Cloud-Konto und versuche es später erneut. Deine Daten auf diesem Rechner bleiben unverändert erhalten.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_IMAGETYPE_IMPORT_WARNING</source>
        <translation>Dieses Dateiformat wird nicht unterstützt. Bitte verwende ein Bild im Format JPG, PNG oder TIFF.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_REALLY_IMPORT_DATABASE</source>
        <translation>Beim Import werden alle Dokumente, Posten, Empfänger und Absender gelöscht und durch den Inhalt der Datensicherung ersetzt. Die Synchronisation wird dabei ausgeschaltet, und Velmora Rechnungen wird nach dem Import beendet. Möchtest du fortfahren?</translation>
    </message>
    <message>
        <source>ALERT_TEXT_RECHNUNG_OEFFNEN_FUER_IMPORT</source>
        <translation>Um Posten zu übernehmen, öffne zuerst im Editor das Dokument, dem die Posten hinzugefügt werden sollen, und starte die Übertragung dann erneut.</translation>
    </message>
    <message>
        <source>ALERT_TITLE_IMPORT_ABGELEHNT</source>
        <translation>Posten nicht übernommen</translation>
    </message>
    <message>
        <source>ALERT_TEXT_IMPORT_STUNDEN_UNGUELTIG</source>
        <translation>Die Zeiterfassung hat als Dauer keine Zahl von Sekunden zwischen 18 Sekunden und 1.000.000 Stunden geschickt. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_IMPORT_ERTRAEGE_UNGUELTIG</source>
        <translation>Die Zeiterfassung hat als Ertrag keinen Betrag zwischen 0 und 1.000.000.000.000 geschickt. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_IMPORT_STEUERZEICHEN</source>
        <translation>Ein Text der Zeiterfassung enthält ein Steuerzeichen, das dort nicht stehen darf (etwa einen Zeilenumbruch in Aufgabe, Auftrag, Auftraggeber oder Zeitraum). Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>ALERT_TITLE_DATENORDNER_BELEGT</source>
        <translation>Daten werden schon verwendet</translation>
    </message>
    <message>
        <source>ALERT_TEXT_DATENORDNER_BELEGT</source>
        <translation>Ein anderes Velmora Rechnungen oder ein Befehl von velmora-cli arbeitet gerade mit diesem Datenordner und antwortet nicht. Beende es und starte das Programm dann erneut.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_UPDATE_DATABASE</source>
        <translation>Die Daten in der Cloud stammen von einer neueren Version von Velmora Rechnungen. Bitte aktualisiere Velmora Rechnungen auf diesem Rechner, damit die Synchronisation fortgesetzt werden kann.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_VERSANDTE_RECHNUNG_OEFFNEN</source>
        <translation>Dieses Dokument wurde bereits versendet und kann nicht mehr bearbeitet werden; sein PDF bleibt so, wie es verschickt wurde. Wenn du etwas ändern musst, dupliziere das Dokument und bearbeite die Kopie.</translation>
    </message>
    <message>
        <source>ALERT_TEXT_WHICH_DATABASE_TO_IMPORT</source>
        <translation>Wähle die Datensicherung (Dateiendung .fks), die importiert werden soll.</translation>
    </message>
    <message>
        <source>DATABASE_EXPORT_PROBLEM</source>
        <translation>Die automatische Datensicherung konnte nicht angelegt werden. Bitte prüfe, ob auf deinem Rechner genügend Speicherplatz frei ist. Deine Daten selbst sind davon nicht betroffen; beim nächsten Start wird erneut eine Sicherung angelegt.</translation>
    </message>
    <message>
        <source>DATABASE_IMPORT_PROBLEM</source>
        <translation>Die gewählte Datei ist keine brauchbare Datensicherung von Velmora Rechnungen (Dateiendung .fks). Deine Daten sind unverändert. Wähle eine gültige Datensicherung, zum Beispiel die automatische Sicherung vom letzten Start.</translation>
    </message>
    <message>
        <source>DATABASE_IMPORT_NOT_UNPACKED</source>
        <translation>Die Datensicherung konnte nicht neben deinen Daten entpackt werden, zum Beispiel weil der Speicherplatz nicht reicht. Deine Daten sind unverändert.</translation>
    </message>
    <message>
        <source>DATABASE_IMPORT_NO_BACKUP</source>
        <translation>Deine bisherigen Daten konnten vor dem Import nicht gesichert werden. Der Import wurde abgebrochen; deine Daten sind unverändert.</translation>
    </message>
    <message>
        <source>DATABASE_IMPORT_FAILED</source>
        <translation>Die Datensicherung konnte nicht eingesetzt werden. Deine Daten vom Stand vor dem Import liegen in der unten genannten Sicherung; importiere sie, um sie zurückzuholen.</translation>
    </message>
    <message>
        <source>PANEL_FILTER_DATENSICHERUNGEN</source>
        <translation>Datensicherungen</translation>
    </message>
    <message>
        <source>PANEL_FILTER_BILDER</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>DATABASE_IMPORT_SUCCESSFUL</source>
        <translation>Die Datensicherung wurde importiert. Velmora Rechnungen wird jetzt beendet; beim nächsten Start stehen dir die importierten Daten zur Verfügung. Die Synchronisation ist ausgeschaltet und kann in den Einstellungen wieder eingeschaltet werden.</translation>
    </message>
    <!-- Store failures -->
    <message>
        <source>Failed to initialize the application's saved data</source>
        <translation>Die gespeicherten Daten konnten nicht geöffnet werden</translation>
    </message>
    <message>
        <source>There was an error creating or loading the application's saved data.</source>
        <translation>Beim Anlegen oder Laden der gespeicherten Daten ist ein Fehler aufgetreten.</translation>
    </message>
    <message>
        <source>Expected a folder to store application data, found a file </source>
        <extracomment>Followed by the path of the file and a full stop.</extracomment>
        <translation>Für die Programmdaten wird ein Ordner erwartet, gefunden wurde aber eine Datei: </translation>
    </message>
    <!-- Object store errors (%1 the path of the store file, %2 the reason reported by the database) -->
    <message>
        <source>STORE_ERROR_CANNOT_OPEN</source>
        <translation>Die Datenbank „%1“ konnte nicht geöffnet werden (%2). Bitte prüfe, ob ihr Ordner vorhanden und beschreibbar ist.</translation>
    </message>
    <message>
        <source>STORE_ERROR_NOT_A_STORE</source>
        <translation>Die Datei „%1“ ist keine Datenbank von Velmora Rechnungen (%2). Sie wurde nicht verändert.</translation>
    </message>
    <message>
        <source>STORE_ERROR_DAMAGED</source>
        <translation>Die Datenbank „%1“ ist beschädigt (%2). Du kannst deine Daten über den Import einer Datensicherung in den Einstellungen wiederherstellen.</translation>
    </message>
    <message>
        <source>STORE_ERROR_NEWER_VERSION</source>
        <translation>Die Datenbank „%1“ wurde von einer neueren Version von Velmora Rechnungen angelegt (Datenbankversion %2). Bitte aktualisiere Velmora Rechnungen, um sie zu öffnen.</translation>
    </message>
    <message>
        <source>STORE_ERROR_SAVE_FAILED</source>
        <translation>Deine Änderungen konnten nicht in der Datenbank „%1“ gespeichert werden (%2). Sie bleiben erhalten, bis das Speichern gelingt; bitte prüfe, ob genügend Speicherplatz frei ist.</translation>
    </message>
    <!-- Buttons -->
    <message>
        <source>BUTTON_TITLE_ABBRECHEN</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_CLOSE</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_DELETE</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_DUPLIZIEREN</source>
        <translation>Duplizieren</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_TROTZDEMBEENDEN</source>
        <translation>Trotzdem beenden</translation>
    </message>
    <!-- Test support -->
    <message>
        <source>PRUEFTEXT_NUR_DEUTSCH</source>
        <extracomment>Kept in the German table only: the lookup tests use it to check that an English document falls back to the user's language for a key the English table lacks.</extracomment>
        <translation>Nur im deutschen Katalog</translation>
    </message>
    <message>
        <source>MENU_DATEI</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>MENU_SICHERN</source>
        <translation>&amp;Sichern</translation>
    </message>
    <message>
        <source>MENU_DATENSICHERUNG_JETZT</source>
        <translation>Datensicherung &amp;jetzt erstellen</translation>
    </message>
    <message>
        <source>MENU_DATENBANK_IMPORTIEREN</source>
        <translation>Datenbank &amp;importieren …</translation>
    </message>
    <message>
        <source>MENU_BEENDEN</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>SPALTE_NUMMER</source>
        <translation>Nummer</translation>
    </message>
    <message>
        <source>SPALTE_EMPFAENGER</source>
        <translation>Empfänger</translation>
    </message>
    <message>
        <source>SPALTE_STATUS</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>SPALTE_FAELLIG</source>
        <translation>Fällig am</translation>
    </message>
    <message>
        <source>SPALTE_SUMME</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>STATUS_ENTWURF</source>
        <translation>Entwurf</translation>
    </message>
    <message>
        <source>STATUS_VERSENDET</source>
        <translation>Versendet</translation>
    </message>
    <message>
        <source>STATUS_FAELLIG</source>
        <translation>Fällig</translation>
    </message>
    <message>
        <source>STATUS_BEZAHLT</source>
        <translation>Bezahlt</translation>
    </message>
    <message>
        <source>HAUPTFENSTER_OFFENES_DOKUMENT</source>
        <translation>Posten des gewählten Dokuments (hierhin werden importierte Posten übernommen)</translation>
    </message>
    <message>
        <source>STATUS_DATENSICHERUNG_LAEUFT</source>
        <translation>Datensicherung wird erstellt …</translation>
    </message>
    <message>
        <source>STATUS_DATENSICHERUNG_FERTIG</source>
        <translation>Datensicherung gespeichert: </translation>
    </message>
    <message>
        <source>STATUS_IMPORT_LAEUFT</source>
        <translation>Datenbank wird importiert …</translation>
    </message>
    <message>
        <source>BUTTON_TITLE_ANZEIGEN</source>
        <extracomment>The click action of a due-document notification, where the desktop lists actions.</extracomment>
        <translation>Anzeigen</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_TITEL</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_DOKUMENTE_IN_A4</source>
        <translation>Dokumente im Format A4 (sonst US Letter)</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_KEINE_FAELLIGKEITS_MITTEILUNGEN</source>
        <translation>Keine Mitteilungen für fällige Dokumente</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_SYNC</source>
        <translation>Daten zwischen meinen Rechnern abgleichen</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_MAHNUNG_ZAHLUNGSFRIST</source>
        <translation>Zahlungsfrist einer Mahnung:</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_TAGE_EINHEIT</source>
        <translation> Tage</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_GRUPPE_DOKUMENTE</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_GRUPPE_FARBE</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_GRUPPE_DATENBANK</source>
        <translation>Datenbank</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_IMPORT_HINWEIS</source>
        <translation>Eine Datensicherung (.fks) ersetzt alle aktuellen Daten. Velmora Rechnungen beendet sich danach.</translation>
    </message>
    <message>
        <source>EINSTELLUNGEN_IMPORT_BUTTON</source>
        <translation>Datenbank importieren …</translation>
    </message>
    <message>
        <source>FARBE_GRAU</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>FARBE_DUNKELGRAU</source>
        <translation>Dunkelgrau</translation>
    </message>
    <message>
        <source>FARBE_ROT</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>FARBE_ORANGE</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>FARBE_GELB</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>FARBE_GRUEN</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>FARBE_BLAU</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>FARBE_VIOLETT</source>
        <translation>Violett</translation>
    </message>
    <message>
        <source>MENU_NEUES_DOKUMENT</source>
        <translation>&amp;Neues Dokument</translation>
    </message>
    <message>
        <source>MENU_NEUES_DOKUMENT_BEARBEITEN</source>
        <translation>Neues Dokument &amp;bearbeiten …</translation>
    </message>
    <message>
        <source>MENU_ALS_PDF_SICHERN</source>
        <translation>Als &amp;PDF sichern …</translation>
    </message>
    <message>
        <source>MENU_DRUCKEN</source>
        <translation>&amp;Drucken …</translation>
    </message>
    <message>
        <source>MENU_EINSTELLUNGEN</source>
        <translation>&amp;Einstellungen …</translation>
    </message>
    <message>
        <source>MENU_HILFE</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>MENU_HILFE_ANZEIGEN</source>
        <translation>Hilfe &amp;ein- und ausblenden</translation>
    </message>
    <message>
        <source>MENU_TUTORIAL</source>
        <translation>&amp;Anleitung im Web</translation>
    </message>
</context>
</TS>
