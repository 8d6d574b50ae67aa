<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>FlightPanel</name>
    <message>
        <source>Flight</source>
        <translation>Flug</translation>
    </message>
    <message>
        <source>Altitude</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Heading</source>
        <translation>Kurs</translation>
    </message>
</context>
<context>
    <name>GraphAction</name>
    <message>
        <source>Show in graph</source>
        <translation>Im Graphen zeigen</translation>
    </message>
</context>
<context>
    <name>KOLT::BandScroll</name>
    <message>
        <source>Traces in view</source>
        <translation>Sichtbare Kurven</translation>
    </message>
</context>
<context>
    <name>KOLT::CardList</name>
    <message>
        <source>Unknown Date</source>
        <translation>Datum unbekannt</translation>
    </message>
    <message>
        <source>The folder that is open</source>
        <translation>Geöffneter Ordner</translation>
    </message>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... und %n weiterer</numerusform>
            <numerusform>... und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::CardSession</name>
    <message>
        <source>The folder
%1
cannot be opened. Please check that it exists and can be read.</source>
        <translation>Der Ordner
%1
kann nicht geöffnet werden. Bitte prüfen Sie, ob er vorhanden ist und gelesen werden darf.</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>Lese %1</translation>
    </message>
    <message numerus="yes">
        <source>%n record file(s)</source>
        <translation>
            <numerusform>%n Aufzeichnungsdatei</numerusform>
            <numerusform>%n Aufzeichnungsdateien</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n engine cycle(s)</source>
        <translation>
            <numerusform>%n Zyklus</numerusform>
            <numerusform>%n Zyklen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1
is not a record file. Record files end with .CAN, .can or .xcb.</source>
        <translation>%1
ist keine Aufzeichnungsdatei. Aufzeichnungsdateien enden auf .CAN, .can oder .xcb.</translation>
    </message>
    <message>
        <source>Loading %1</source>
        <translation>Lade %1</translation>
    </message>
    <message>
        <source>%1 was not found any more. The whole cycle is loaded.</source>
        <translation>Nicht mehr vorhanden: %1. Der ganze Zyklus ist geladen.</translation>
    </message>
    <message>
        <source>%1, flight %2</source>
        <translation>%1, Flug %2</translation>
    </message>
    <message>
        <source>These files could not be read, and the data loaded before are still shown:
%1
Please check that the card is still inserted and that the files can be read; then open the folder again.</source>
        <translation>Diese Dateien konnten nicht gelesen werden; was zuvor geladen war, wird weiter gezeigt:
%1
Bitte prüfen Sie, ob die Karte noch steckt und die Dateien lesbar sind; öffnen Sie dann den Ordner erneut.</translation>
    </message>
    <message>
        <source>These files could not be read and are missing from the data shown:
%1
Please check that the card is still inserted and that the files can be read; then open the folder again.</source>
        <translation>Diese Dateien konnten nicht gelesen werden und fehlen in der Anzeige:
%1
Bitte prüfen Sie, ob die SD-Karte noch eingelegt ist und die Dateien lesbar sind; öffnen Sie den Ordner dann erneut.</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s)</source>
        <translation>
            <numerusform>%n Datei</numerusform>
            <numerusform>%n Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, %2 samples, %3 to %4 (%5)</source>
        <translation>%1, %2 Messwerte, %3 bis %4 (%5)</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>KOLT::CaseCommand</name>
    <message>
        <source>A case file is cut from one engine cycle. Open the folder of these data, and choose a cycle or flight in it.</source>
        <translation>Eine Fallakte wird aus einem Motorzyklus geschnitten. Öffnen Sie den Ordner dieser Daten und wählen Sie darin einen Zyklus oder Flug.</translation>
    </message>
    <message>
        <source>Folder for the Case File</source>
        <translation>Ordner für die Fallakte</translation>
    </message>
    <message>
        <source>Case File for Mail</source>
        <translation>Fallakte zum Versenden</translation>
    </message>
    <message>
        <source>Zip Files (*.zip)</source>
        <translation>Zip-Dateien (*.zip)</translation>
    </message>
</context>
<context>
    <name>KOLT::CaseFile</name>
    <message>
        <source>The folder %1 cannot be created.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>There is no cycle %1 in %2.</source>
        <translation>Es gibt keinen Zyklus %1 in %2.</translation>
    </message>
    <message>
        <source>The time must go from one second to a later one.</source>
        <translation>Die Zeit muss von einer Sekunde zu einer späteren reichen.</translation>
    </message>
    <message>
        <source>The folder %1 exists and is not empty: a case needs a new one.</source>
        <translation>Den Ordner %1 gibt es schon, und er ist nicht leer: Eine Fallakte braucht einen neuen.</translation>
    </message>
    <message>
        <source>%1 cannot be read to its end.</source>
        <translation>%1 kann nicht bis zum Ende gelesen werden.</translation>
    </message>
    <message>
        <source>Nothing was recorded in this time.</source>
        <translation>In dieser Zeit wurde nichts aufgezeichnet.</translation>
    </message>
    <message>
        <source>%1 cannot be read.</source>
        <translation>%1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>More than 4 GB do not fit into a zip file. Choose a shorter time.</source>
        <translation>Mehr als 4 GB passen nicht in eine Zip-Datei. Wählen Sie eine kürzere Zeit.</translation>
    </message>
    <message>
        <source>%1 exists: a case needs a new file.</source>
        <translation>%1 ist schon vorhanden: Eine Fallakte braucht eine neue Datei.</translation>
    </message>
</context>
<context>
    <name>KOLT::ClockOffset</name>
    <message>
        <source>Dates and times are those of the unit&apos;s clock, taken as UTC.</source>
        <translation>Daten und Uhrzeiten sind die der Uhr des Geräts, die als UTC gilt.</translation>
    </message>
    <message>
        <source>Dates and times are those of the unit&apos;s clock, taken as UTC, and %1.</source>
        <translation>Daten und Uhrzeiten sind die der Uhr des Geräts, die als UTC gilt, und %1.</translation>
    </message>
</context>
<context>
    <name>KOLT::Cycle</name>
    <message>
        <source>Cycle %1</source>
        <translation>Zyklus %1</translation>
    </message>
</context>
<context>
    <name>KOLT::CycleList</name>
    <message>
        <source>Flight %1 %2 (%3)</source>
        <translation>Flug %1 %2 (%3)</translation>
    </message>
    <message>
        <source>Nothing was exceeded</source>
        <translation>Nichts wurde überschritten</translation>
    </message>
    <message>
        <source>A warning threshold was exceeded</source>
        <translation>Eine Warnschwelle wurde überschritten</translation>
    </message>
    <message>
        <source>A limit was exceeded</source>
        <translation>Ein Grenzwert wurde überschritten</translation>
    </message>
    <message>
        <source>Cycles</source>
        <translation>Zyklen</translation>
    </message>
</context>
<context>
    <name>KOLT::DaySheet</name>
    <message>
        <source>Unknown Date</source>
        <translation>Datum unbekannt</translation>
    </message>
    <message numerus="yes">
        <source>%n flight(s)</source>
        <translation>
            <numerusform>%n Flug</numerusform>
            <numerusform>%n Flüge</numerusform>
        </translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Take-off</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Landing</source>
        <translation>Landung</translation>
    </message>
    <message>
        <source>Flight time</source>
        <translation>Flugzeit</translation>
    </message>
    <message>
        <source>Max. alt. [m]</source>
        <translation>Max. Höhe [m]</translation>
    </message>
    <message>
        <source>Fuel [l]</source>
        <translation>Kraftstoff [l]</translation>
    </message>
    <message>
        <source>T/O distance [m]</source>
        <translation>Startstrecke [m]</translation>
    </message>
    <message>
        <source>Sum %1</source>
        <translation>Summe %1</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Gesamt</translation>
    </message>
    <message>
        <source>Take-off, counter [s]</source>
        <translation>Start, Zähler [s]</translation>
    </message>
    <message>
        <source>Landing, counter [s]</source>
        <translation>Landung, Zähler [s]</translation>
    </message>
    <message>
        <source>Outside flights</source>
        <translation>Außerhalb</translation>
    </message>
    <message>
        <source>Cycle %1, %2</source>
        <translation>Zyklus %1, %2</translation>
    </message>
    <message>
        <source>%1 (%2 to %3)</source>
        <translation>%1 (%2 bis %3)</translation>
    </message>
    <message>
        <source>Cycle</source>
        <translation>Zyklus</translation>
    </message>
    <message>
        <source>Flight</source>
        <translation>Flug</translation>
    </message>
    <message>
        <source>Gain [m]</source>
        <translation>Gewinn [m]</translation>
    </message>
    <message>
        <source>Climb [m/s]</source>
        <translation>Steigen [m/s]</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>Grenzwerte</translation>
    </message>
    <message>
        <source>Warnings</source>
        <translation>Warnungen</translation>
    </message>
    <message>
        <source>Lamps</source>
        <translation>Lampen</translation>
    </message>
    <message>
        <source>Engine serial number: %1</source>
        <translation>Seriennummer des Motors: %1</translation>
    </message>
    <message>
        <source>Unit serial number: %1</source>
        <translation>Seriennummer des Geräts: %1</translation>
    </message>
    <message>
        <source>Engine serial number</source>
        <translation>Seriennummer des Motors</translation>
    </message>
    <message>
        <source>Unit serial number</source>
        <translation>Seriennummer des Geräts</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Uhr</translation>
    </message>
    <message>
        <source>Doubtful</source>
        <translation>Zweifelhaft</translation>
    </message>
    <message>
        <source>Flight time: from take-off to landing. Limits and warnings exceeded: episodes, in brackets their crossings, together with their lamps; lamps: those that came on alone.</source>
        <translation>Flugzeit: vom Start bis zur Landung. Überschrittene Grenzwerte und Warnungen: Episoden, in Klammern ihre Überschreitungen, zusammen mit ihren Lampen; Lampen: die, die allein angingen.</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogAbout</name>
    <message>
        <source>About KOLT</source>
        <translation>Über KOLT</translation>
    </message>
    <message>
        <source>Debriefing viewer for the recordings of an engine management unit</source>
        <translation>Debriefing-Programm für Aufzeichnungen einer Motormanagement-Einheit (EMU)</translation>
    </message>
    <message>
        <source>Version of %1, with Qt %2</source>
        <translation>Stand %1, mit Qt %2</translation>
    </message>
    <message>
        <source>Components</source>
        <translation>Komponenten</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogCard</name>
    <message>
        <source>Cycles</source>
        <translation>Zyklen</translation>
    </message>
    <message>
        <source>Raw Data</source>
        <translation>Rohdaten</translation>
    </message>
    <message>
        <source>No folder is open. Choose one with &quot;Open Data Folder&quot;.</source>
        <translation>Kein Ordner ist offen. Wählen Sie einen mit „Datenordner öffnen“.</translation>
    </message>
    <message>
        <source>The folder
%1
cannot be found. Insert the card, or choose another folder with &quot;Open Data Folder&quot;.</source>
        <translation>Der Ordner
%1
ist nicht da. Legen Sie die Karte ein, oder wählen Sie mit „Datenordner öffnen“ einen anderen.</translation>
    </message>
    <message>
        <source>The folder no longer exists.</source>
        <translation>Der Ordner ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The folder cannot be read. Please check its permissions.</source>
        <translation>Der Ordner darf nicht gelesen werden: Bitte prüfen Sie seine Zugriffsrechte.</translation>
    </message>
    <message>
        <source>No folder is open yet.</source>
        <translation>Noch ist kein Ordner geöffnet.</translation>
    </message>
    <message>
        <source>No record files in this folder: their names end with .CAN, .can or .xcb. Folders inside it are not searched.</source>
        <translation>Keine Aufzeichnungsdateien in diesem Ordner: Ihre Namen enden auf .CAN, .can oder .xcb. Unterordner werden nicht durchsucht.</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogData</name>
    <message>
        <source>Graph</source>
        <translation>Graph</translation>
    </message>
    <message>
        <source>Fault Matrix</source>
        <translation>Fehlermatrix</translation>
    </message>
    <message>
        <source>Limit/Warning</source>
        <translation>Grenzwerte</translation>
    </message>
    <message>
        <source>Warning Lamps</source>
        <translation>Warnlampen</translation>
    </message>
    <message>
        <source>Tow Statistic</source>
        <translation>Schleppstatistik</translation>
    </message>
    <message>
        <source>EMU View</source>
        <translation>EMU-Anzeige</translation>
    </message>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
    <message>
        <source>Hide Map Display</source>
        <translation>Karte ausblenden</translation>
    </message>
    <message>
        <source>Tile Map Display Horizontally</source>
        <translation>Karte daneben anzeigen</translation>
    </message>
    <message>
        <source>Tile Map Display Vertically</source>
        <translation>Karte darunter anzeigen</translation>
    </message>
    <message>
        <source>Overview of the open folder (Esc in the lists)</source>
        <translation>Übersicht über den geöffneten Ordner (Esc in den Listen)</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogDataGraph</name>
    <message>
        <source>Choose a cycle or a flight on the left to see its traces.</source>
        <translation>Wählen Sie links einen Zyklus oder einen Flug, um seine Kurven zu sehen.</translation>
    </message>
    <message>
        <source>No parameters are selected. Check some in the list on the left and press &quot;Confirm Selection&quot;.</source>
        <translation>Es sind keine Parameter ausgewählt. Kreuzen Sie links welche an und drücken Sie „Auswahl bestätigen“.</translation>
    </message>
    <message>
        <source>Save Snapshot</source>
        <translation>Bild sichern</translation>
    </message>
    <message>
        <source>BMP File (*.bmp);;All Files (*.*)</source>
        <translation>BMP-Datei (*.bmp);;Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>The picture was not saved: there is no picture format for
%1
Use a name that ends with .bmp, .png or .jpg.</source>
        <translation>Das Bild wurde nicht gesichert: Es gibt kein Bildformat für
%1
Verwenden Sie einen Namen mit der Endung .bmp, .png oder .jpg.</translation>
    </message>
    <message>
        <source>Reading traces: %1 of %2</source>
        <translation>Kurven werden gelesen: %1 von %2</translation>
    </message>
    <message>
        <source>Only the first %1 of %2 parameters are shown.</source>
        <translation>Nur die ersten %1 von %2 Parametern sind zu sehen.</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogDataLimit</name>
    <message>
        <source>Warning/Limit Exceed</source>
        <translation>Warnung/Grenzwert überschritten</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogDataMap</name>
    <message>
        <source>Center AC</source>
        <translation>Flugzeug zentrieren</translation>
    </message>
    <message>
        <source>Fit flight</source>
        <translation>Ganzer Flug</translation>
    </message>
    <message>
        <source>Show the whole flight (F)</source>
        <translation>Ganzen Flug zeigen (F)</translation>
    </message>
    <message>
        <source>Altitude</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Ground speed</source>
        <translation>Geschwindigkeit über Grund</translation>
    </message>
    <message>
        <source>What the track is colored by</source>
        <translation>Wonach die Spur gefärbt ist</translation>
    </message>
    <message>
        <source>One color</source>
        <translation>Eine Farbe</translation>
    </message>
    <message>
        <source>Hill shading</source>
        <translation>Geländeschattierung</translation>
    </message>
    <message>
        <source>Hill shading (Ctrl+S while the map has the focus)</source>
        <translation>Geländeschattierung (Strg+S, wenn die Karte den Fokus hat)</translation>
    </message>
    <message>
        <source>Show the values of the selected parameters</source>
        <translation>Die Werte der gewählten Parameter zeigen</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>No map tiles in the folder</source>
        <translation>Keine Kacheln im Ordner</translation>
    </message>
    <message>
        <source>No map tiles: offline</source>
        <translation>Keine Kacheln: offline</translation>
    </message>
    <message>
        <source>No map tiles here</source>
        <translation>Hier keine Kacheln</translation>
    </message>
    <message>
        <source>Map settings...</source>
        <translation>Einstellungen der Karte...</translation>
    </message>
    <message>
        <source>The map is too small for the values</source>
        <translation>Die Karte ist zu klein für die Werte</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Show where notes were written</source>
        <translation>Zeigen, wo Notizen geschrieben wurden</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogDataStatistic</name>
    <message>
        <source>Choose a flight on the left to see its figures.</source>
        <translation>Wählen Sie links einen Flug, um seine Zahlen zu sehen.</translation>
    </message>
    <message>
        <source>Flight Time</source>
        <translation>Flugzeit</translation>
    </message>
    <message>
        <source>Total Fuel Lane A</source>
        <translation>Kraftstoff Lane A</translation>
    </message>
    <message>
        <source>Total Fuel Lane B</source>
        <translation>Kraftstoff Lane B</translation>
    </message>
    <message>
        <source>Total Fuel</source>
        <translation>Kraftstoff gesamt</translation>
    </message>
    <message>
        <source>Minimum Alt</source>
        <translation>Minimale Höhe</translation>
    </message>
    <message>
        <source>Maximum Alt</source>
        <translation>Maximale Höhe</translation>
    </message>
    <message>
        <source>Total Climb</source>
        <translation>Gesamtes Steigen</translation>
    </message>
    <message>
        <source>Average Climb Rate</source>
        <translation>Mittlere Steigrate</translation>
    </message>
    <message>
        <source>Average Descend Rate</source>
        <translation>Mittlere Sinkrate</translation>
    </message>
    <message>
        <source>Max Ground Speed</source>
        <translation>Max. Geschwindigkeit über Grund</translation>
    </message>
    <message>
        <source>Time / 100m</source>
        <translation>Zeit / 100 m</translation>
    </message>
    <message>
        <source>Fuel / 100m</source>
        <translation>Kraftstoff / 100 m</translation>
    </message>
    <message>
        <source>Take Off Distance</source>
        <translation>Startstrecke</translation>
    </message>
    <message>
        <source>Take Off Distance 15m</source>
        <translation>Startstrecke bis 15 m</translation>
    </message>
    <message>
        <source>&lt;br&gt;&lt;br&gt;&lt;b&gt;No flight selected&lt;/b&gt;</source>
        <translation>&lt;br&gt;&lt;br&gt;&lt;b&gt;Kein Flug ausgewählt&lt;/b&gt;</translation>
    </message>
    <message>
        <source>Flight Time runs from 30 s before take-off to 30 s after landing, like the loaded data. The day sheet counts from take-off to landing.</source>
        <translation>Die Flugzeit zählt von 30 s vor dem Start bis 30 s nach der Landung, so wie der Flug ausgeschnitten wurde. Das Tagesblatt zählt vom Start bis zur Landung.</translation>
    </message>
    <message>
        <source>Figures that may be wrong: %1</source>
        <translation>Werte, die falsch sein können: %1</translation>
    </message>
    <message>
        <source>Tow Statistic</source>
        <translation>Schleppstatistik</translation>
    </message>
    <message>
        <source>Marked figures</source>
        <translation>Markierte Werte</translation>
    </message>
    <message>
        <source>Rounded: fuel %1 l, altitude %2 to %3 m, climb %4 m at %5 m/s, speed up to %6 km/h, take-off distance %7 m</source>
        <translation>Gerundet: Kraftstoff %1 l, Höhe %2 bis %3 m, Steigen %4 m mit %5 m/s, bis zu %6 km/h, Startstrecke %7 m</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogDataTable</name>
    <message>
        <source>Previous change</source>
        <translation>Vorherige Änderung</translation>
    </message>
    <message>
        <source>Jump to the previous change of the selected column</source>
        <translation>Zur vorherigen Änderung in der ausgewählten Spalte springen</translation>
    </message>
    <message>
        <source>Next change</source>
        <translation>Nächste Änderung</translation>
    </message>
    <message>
        <source>Jump to the next change of the selected column</source>
        <translation>Zur nächsten Änderung in der ausgewählten Spalte springen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>No parameters are selected. Check some in the list on the left and press &quot;Confirm Selection&quot;.</source>
        <translation>Es sind keine Parameter ausgewählt. Kreuzen Sie links in der Liste welche an und klicken Sie auf „Auswahl bestätigen“.</translation>
    </message>
    <message>
        <source>The selected parameters have no samples in this data set.</source>
        <translation>Zu den ausgewählten Parametern enthalten diese Daten keine Messwerte.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln row(s)</source>
        <translation>
            <numerusform>%Ln Zeile</numerusform>
            <numerusform>%Ln Zeilen</numerusform>
        </translation>
    </message>
    <message>
        <source>No further change in this column.</source>
        <translation>Keine weitere Änderung.</translation>
    </message>
    <message>
        <source>No earlier change in this column.</source>
        <translation>Keine frühere Änderung.</translation>
    </message>
    <message>
        <source>KOLT Info</source>
        <translation>KOLT-Hinweis</translation>
    </message>
    <message>
        <source>Choose a cycle or a flight on the left to see its values.
F1 opens the help.</source>
        <translation>Wählen Sie links einen Zyklus oder einen Flug, um seine Werte zu sehen.
F1 öffnet die Hilfe.</translation>
    </message>
    <message>
        <source>First select a cell of the parameter to search.</source>
        <translation>Wählen Sie zuerst eine Zelle des gesuchten Parameters.</translation>
    </message>
    <message>
        <source>Not copied: more than %L1 cells are selected.
Select fewer, or export the data as a CSV file.</source>
        <translation>Nicht kopiert: mehr als %L1 Zellen sind ausgewählt.
Wählen Sie weniger oder exportieren Sie die Daten als CSV-Datei.</translation>
    </message>
    <message>
        <source>Clock time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Show the clock time beside the time on the unit&apos;s counter</source>
        <translation>Die Uhrzeit neben der Zeit des Zählers zeigen</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogDataView</name>
    <message numerus="yes">
        <source>The instrument view has %n fault(s): %1</source>
        <translation>
            <numerusform>Die Instrumententafel hat %n Fehler: %1</numerusform>
            <numerusform>Die Instrumententafel hat %n Fehler: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>The instrument view cannot be shown: %1</source>
        <translation>Die Instrumententafel lässt sich nicht anzeigen: %1</translation>
    </message>
    <message>
        <source>Several parameters are named &quot;%1&quot; (%2). Under this name the instrument view shows only the last one.</source>
        <translation>Mehrere Parameter heißen „%1“ (%2). Unter diesem Namen kennt die Instrumententafel nur den letzten.</translation>
    </message>
    <message>
        <source>EMU View</source>
        <translation>EMU-Anzeige</translation>
    </message>
    <message>
        <source>The instruments at the current moment</source>
        <translation>Die Instrumente zum aktuellen Zeitpunkt</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogDataWarning</name>
    <message>
        <source>Warning Lamps</source>
        <translation>Warnlampen</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogDaySheet</name>
    <message>
        <source>Day Sheet</source>
        <translation>Tagesblatt</translation>
    </message>
    <message>
        <source>Which flights the sheet lists</source>
        <translation>Welche Flüge das Blatt aufführt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Flights of</source>
        <translation>Flüge von</translation>
    </message>
    <message>
        <source>Print...</source>
        <translation>Drucken...</translation>
    </message>
    <message>
        <source>Save as PDF...</source>
        <translation>Als PDF sichern...</translation>
    </message>
    <message>
        <source>Save as CSV...</source>
        <translation>Als CSV sichern...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>All of %1</source>
        <translation>Alle in %1</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>Lese %1</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Incomplete: these files could not be read: %1</source>
        <translation>Unvollständig: Diese Dateien konnten nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>No flights were found.</source>
        <translation>Keine Flüge gefunden.</translation>
    </message>
    <message>
        <source>Flights of %1</source>
        <translation>Flüge von %1</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Als PDF sichern</translation>
    </message>
    <message>
        <source>PDF Files (*.pdf)</source>
        <translation>PDF-Dateien (*.pdf)</translation>
    </message>
    <message>
        <source>Save as CSV</source>
        <translation>Als CSV sichern</translation>
    </message>
    <message>
        <source>CSV Files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>Double-click or Return opens the flight in the main window</source>
        <translation>Doppelklick oder Eingabetaste öffnet den Flug im Hauptfenster</translation>
    </message>
    <message>
        <source>Unknown Date</source>
        <translation>Datum unbekannt</translation>
    </message>
    <message>
        <source>These flights are of single files. Choose a day to open them.</source>
        <translation>Diese Flüge sind aus einzelnen Dateien. Wählen Sie einen Tag, um sie zu öffnen.</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gesichert</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogEventList</name>
    <message>
        <source>No exceedance in this data set</source>
        <translation>Keine Überschreitung in diesen Daten</translation>
    </message>
    <message>
        <source>Filter the list</source>
        <translation>Liste filtern</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Save list as CSV</source>
        <translation>Liste als CSV sichern</translation>
    </message>
    <message>
        <source>Choose a cycle or a flight on the left to see what was exceeded.</source>
        <translation>Wählen Sie links einen Zyklus oder einen Flug, um Überschreitungen zu sehen.</translation>
    </message>
    <message>
        <source>CSV Files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>On from the start: %1</source>
        <translation>Von Anfang an an: %1</translation>
    </message>
    <message>
        <source>Only the first %L1 exceedances are listed, %L2 more are left out.</source>
        <translation>Nur die ersten %L1 Überschreitungen sind aufgelistet, %L2 weitere sind ausgelassen.</translation>
    </message>
    <message>
        <source>No lamp came on in this data set</source>
        <translation>In diesen Daten ging keine Lampe an</translation>
    </message>
    <message>
        <source>Belongs to: %1</source>
        <translation>Gehört zu: %1</translation>
    </message>
    <message>
        <source>No line has this text.</source>
        <translation>Keine Zeile enthält diesen Text.</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogExport</name>
    <message>
        <source>Export...</source>
        <translation>Exportieren...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Cancelled. Nothing was written.</source>
        <translation>Abgebrochen. Es wurde nichts geschrieben.</translation>
    </message>
    <message>
        <source>%1
%2
Please check that the folder can be written and is not full, or choose another one.</source>
        <translation>%1
%2
Bitte prüfen Sie, ob der Ordner beschreibbar und nicht voll ist, oder wählen Sie einen anderen.</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogExportCsv</name>
    <message>
        <source>Export CSV File</source>
        <translation>CSV-Datei exportieren</translation>
    </message>
    <message>
        <source>CSV Files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
    <message>
        <source>KOLT Viewer Warning</source>
        <translation>KOLT-Viewer-Warnung</translation>
    </message>
    <message>
        <source>Exporting CSV file failed !</source>
        <translation>Der Export der CSV-Datei ist gescheitert!</translation>
    </message>
    <message>
        <source>Semicolon ;</source>
        <translation>Semikolon ;</translation>
    </message>
    <message>
        <source>Comma ,</source>
        <translation>Komma ,</translation>
    </message>
    <message>
        <source>Tabulator</source>
        <translation>Tabulator</translation>
    </message>
    <message>
        <source>&amp;Decimal comma (12,5)</source>
        <translation>&amp;Dezimalkomma (12,5)</translation>
    </message>
    <message>
        <source>For spreadsheets that expect a decimal comma</source>
        <translation>Für Tabellenkalkulationen, die ein Dezimalkomma erwarten</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> ms</translation>
    </message>
    <message>
        <source>Time from one row to the next</source>
        <translation>Zeit von einer Zeile zur nächsten</translation>
    </message>
    <message>
        <source>&amp;All parameters (%1)</source>
        <translation>&amp;Alle Parameter (%1)</translation>
    </message>
    <message>
        <source>&amp;Selected parameters (%1)</source>
        <translation>Aus&amp;gewählte Parameter (%1)</translation>
    </message>
    <message>
        <source>Se&amp;parator</source>
        <translation>&amp;Trennzeichen</translation>
    </message>
    <message>
        <source>&amp;Time step</source>
        <translation>&amp;Zeitschritt</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>No parameters are selected.</source>
        <translation>Es sind keine Parameter ausgewählt.</translation>
    </message>
    <message>
        <source>%1 rows are too many. Please choose a longer time step.</source>
        <translation>%1 Zeilen sind zu viele. Bitte wählen Sie einen längeren Zeitschritt.</translation>
    </message>
    <message>
        <source>%1 rows, about %2</source>
        <translation>%1 Zeilen, etwa %2</translation>
    </message>
    <message>
        <source>No sample with a usable time was recorded, so there are no rows to export.</source>
        <translation>Es wurde kein Messwert mit einem brauchbaren Zeitpunkt aufgezeichnet, daher gibt es keine Zeilen zu exportieren.</translation>
    </message>
    <message>
        <source>This separator may occur within a field. Please choose another one.</source>
        <translation>Dieses Trennzeichen könnte für einen Teil eines Feldes gehalten werden. Bitte wählen Sie ein anderes.</translation>
    </message>
    <message>
        <source>The decimal comma is also the separator. Please choose another separator, or the decimal point.</source>
        <translation>Das Dezimalkomma ist vom Trennzeichen nicht zu unterscheiden. Bitte wählen Sie ein anderes Trennzeichen oder den Dezimalpunkt.</translation>
    </message>
    <message>
        <source>&amp;Codes without labels (4 instead of 4: CRUISE)</source>
        <translation>&amp;Codes ohne Bezeichnung (4 statt 4: CRUISE)</translation>
    </message>
    <message>
        <source>For calculations: enumerations as numbers</source>
        <translation>Zum Rechnen: Aufzählungen als Zahlen</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogExportGpx</name>
    <message>
        <source>Export GPX File</source>
        <translation>GPX-Datei exportieren</translation>
    </message>
    <message>
        <source>GPX Files (*.gpx)</source>
        <translation>GPX-Dateien (*.gpx)</translation>
    </message>
    <message>
        <source>KOLT Warning</source>
        <translation>KOLT-Warnung</translation>
    </message>
    <message>
        <source>Exporting GPX file failed !</source>
        <translation>Der Export der GPX-Datei ist gescheitert!</translation>
    </message>
    <message>
        <source>&amp;Waypoints at take-offs, landings and exceedances</source>
        <translation>&amp;Wegpunkte an Starts, Landungen und Überschreitungen</translation>
    </message>
    <message>
        <source>&amp;Speed and course with each position</source>
        <translation>&amp;Geschwindigkeit und Kurs an jeder Position</translation>
    </message>
    <message>
        <source>As an extension of the format, which most programs read</source>
        <translation>Als Erweiterung des Formats, die die meisten Programme lesen</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogExportKml</name>
    <message>
        <source>Export KML File</source>
        <translation>KML-Datei exportieren</translation>
    </message>
    <message>
        <source>KML Files (*.kml)</source>
        <translation>KML-Dateien (*.kml)</translation>
    </message>
    <message>
        <source>KOLT Warning</source>
        <translation>KOLT-Warnung</translation>
    </message>
    <message>
        <source>Exporting KML file failed !</source>
        <translation>Der Export der KML-Datei ist gescheitert!</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>On each mark</source>
        <translation>An jeder Marke</translation>
    </message>
    <message>
        <source>On each mark, and a track that plays back</source>
        <translation>An jeder Marke, und eine abspielbare Spur</translation>
    </message>
    <message>
        <source>T&amp;imes</source>
        <translation>Ze&amp;iten</translation>
    </message>
    <message>
        <source>The recording has no date, so no times can be written.</source>
        <translation>Die Aufzeichnung hat kein Datum, daher können keine Zeiten geschrieben werden.</translation>
    </message>
    <message>
        <source>Flight path</source>
        <translation>Flugweg</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>&amp;Width</source>
        <translation>&amp;Breite</translation>
    </message>
    <message>
        <source>&amp;Color</source>
        <translation>&amp;Farbe</translation>
    </message>
    <message>
        <source>Curtain down to the &amp;ground</source>
        <translation>&amp;Vorhang bis zum Boden</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>&amp;Marks along the path</source>
        <translation>&amp;Marken entlang des Wegs</translation>
    </message>
    <message>
        <source>Each shows time, altitude, speed and the selected parameters</source>
        <translation>Jede nennt Zeit, Höhe, Geschwindigkeit und die ausgewählten Parameter</translation>
    </message>
    <message>
        <source>Distance of the marks in positions of the path</source>
        <translation>Abstand der Marken in Positionen des Wegs</translation>
    </message>
    <message>
        <source>&amp;Every</source>
        <translation>A&amp;lle</translation>
    </message>
    <message>
        <source>Error ma&amp;rks</source>
        <translation>Fehlerma&amp;rken</translation>
    </message>
    <message>
        <source>Where a &amp;limit was exceeded</source>
        <translation>Wo ein &amp;Grenzwert überschritten wurde</translation>
    </message>
    <message>
        <source>Where a warning lam&amp;p came on</source>
        <translation>Wo eine Warnlam&amp;pe anging</translation>
    </message>
    <message>
        <source>Opacity</source>
        <translation>Deckkraft</translation>
    </message>
    <message>
        <source>positions (%1 s)</source>
        <translation>Positionen (%1 s)</translation>
    </message>
    <message>
        <source>As recorded, above sea level</source>
        <translation>Wie aufgezeichnet, über dem Meer</translation>
    </message>
    <message>
        <source>On the ground</source>
        <translation>Am Boden</translation>
    </message>
    <message>
        <source>Above the ground, from the lowest point on</source>
        <translation>Über dem Boden, vom tiefsten Punkt an</translation>
    </message>
    <message>
        <source>Al&amp;titudes</source>
        <translation>Hö&amp;hen</translation>
    </message>
    <message>
        <source>&amp;KMZ file: with its icons inside, for maps without network</source>
        <translation>&amp;KMZ-Datei: mit ihren Symbolen, für Karten ohne Netz</translation>
    </message>
    <message>
        <source>Color of limits</source>
        <translation>Farbe der Grenzwerte</translation>
    </message>
    <message>
        <source>Color of warnings</source>
        <translation>Farbe der Warnungen</translation>
    </message>
    <message>
        <source>KMZ Files (*.kmz)</source>
        <translation>KMZ-Dateien (*.kmz)</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogGraphSetup</name>
    <message>
        <source>Oscilloscope Setup</source>
        <translation>Oszilloskop einrichten</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Wählen</translation>
    </message>
    <message>
        <source>Grid On</source>
        <translation>Gitter an</translation>
    </message>
    <message>
        <source>Cursor On</source>
        <translation>Cursor an</translation>
    </message>
    <message>
        <source>Legend On</source>
        <translation>Legende an</translation>
    </message>
    <message>
        <source>Autoscale On</source>
        <translation>Autoskala an</translation>
    </message>
    <message>
        <source>Limits On</source>
        <translation>Grenzwerte an</translation>
    </message>
    <message>
        <source>Statistic between markers On</source>
        <translation>Statistik zwischen den Markern an</translation>
    </message>
    <message>
        <source>Floating</source>
        <translation>Frei</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Mitte</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Lower end of the scale without autoscale</source>
        <translation>Unteres Ende der Skala ohne Autoskala</translation>
    </message>
    <message>
        <source>Upper end of the scale without autoscale</source>
        <translation>Oberes Ende der Skala ohne Autoskala</translation>
    </message>
    <message>
        <source>Background Color :</source>
        <translation>Hintergrundfarbe :</translation>
    </message>
    <message>
        <source>Grid On/Color :</source>
        <translation>Gitter an/Farbe :</translation>
    </message>
    <message>
        <source>Label Color :</source>
        <translation>Schriftfarbe :</translation>
    </message>
    <message>
        <source>Label Background :</source>
        <translation>Schrifthintergrund :</translation>
    </message>
    <message>
        <source>Cursor On/Mode :</source>
        <translation>Cursor an/Modus :</translation>
    </message>
    <message>
        <source>Legend :</source>
        <translation>Legende :</translation>
    </message>
    <message>
        <source>Y-Scale :</source>
        <translation>Y-Skala :</translation>
    </message>
    <message>
        <source>Limits :</source>
        <translation>Grenzwerte :</translation>
    </message>
    <message>
        <source>Statistic :</source>
        <translation>Statistik :</translation>
    </message>
    <message>
        <source>Exceedances On</source>
        <translation>Überschreitungen an</translation>
    </message>
    <message>
        <source>Exceedances :</source>
        <translation>Überschreitungen :</translation>
    </message>
    <message>
        <source>Notes On</source>
        <translation>Notizen ein</translation>
    </message>
    <message>
        <source>Notes :</source>
        <translation>Notizen:</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogHelp</name>
    <message>
        <source>KOLT Help</source>
        <translation>KOLT-Hilfe</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Return finds the next match, Shift+Return the previous one</source>
        <translation>Eingabetaste: nächste Fundstelle, Umschalt+Eingabetaste: vorherige</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogLibrary</name>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation>Auswählen...</translation>
    </message>
    <message>
        <source>&amp;Folder</source>
        <translation>&amp;Ordner</translation>
    </message>
    <message>
        <source>Recordings, notes and maintenance limits are kept here. An empty folder becomes a new library.</source>
        <translation>Hier liegen Aufzeichnungen, Notizen und Wartungsgrenzen. Ein leerer Ordner wird eine neue Bibliothek.</translation>
    </message>
    <message>
        <source>Database on a PostgreSQL server</source>
        <translation>Datenbank auf einem PostgreSQL-Server</translation>
    </message>
    <message>
        <source>&amp;Host</source>
        <translation>&amp;Rechner</translation>
    </message>
    <message>
        <source>&amp;Port</source>
        <translation>&amp;Port</translation>
    </message>
    <message>
        <source>&amp;Database</source>
        <translation>&amp;Datenbank</translation>
    </message>
    <message>
        <source>&amp;User</source>
        <translation>&amp;Benutzer</translation>
    </message>
    <message>
        <source>For several computers that share the folder. The password comes from libpq&apos;s password file, or is asked for; KOLT does not store it.</source>
        <translation>Für mehrere Rechner, die sich den Ordner teilen. Das Kennwort kommt aus der Kennwortdatei von libpq oder wird erfragt; KOLT speichert es nicht.</translation>
    </message>
    <message>
        <source>SQLite only: this system has no driver for PostgreSQL. The database is a file in the folder.</source>
        <translation>Nur SQLite: Dieses System hat keinen Treiber für PostgreSQL. Die Datenbank ist eine Datei im Ordner.</translation>
    </message>
    <message>
        <source>Folder of the Library</source>
        <translation>Ordner der Bibliothek</translation>
    </message>
    <message>
        <source>Choose the folder of the library.</source>
        <translation>Wählen Sie den Ordner der Bibliothek.</translation>
    </message>
    <message>
        <source>KOLT</source>
        <translation>KOLT</translation>
    </message>
    <message>
        <source>There is no library in
%1
yet. Make one there?</source>
        <translation>In
%1
gibt es noch keine Bibliothek. Dort eine anlegen?</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogMain</name>
    <message>
        <source>Main Toolbar</source>
        <translation>Hauptsymbolleiste</translation>
    </message>
    <message>
        <source>The last folder %1 was not found. Open another one with &quot;Open Data Folder&quot;.</source>
        <translation>Der letzte Ordner %1 ist nicht vorhanden. Öffnen Sie einen anderen mit „Datenordner öffnen“.</translation>
    </message>
    <message>
        <source>The folder
%1
does not exist any more. It was removed from the list; if it is on a card, insert the card and open it again.</source>
        <translation>Der Ordner
%1
ist nicht mehr vorhanden und wurde aus der Liste entfernt. Liegt er auf einer SD-Karte, legen Sie sie ein und öffnen Sie ihn erneut.</translation>
    </message>
    <message>
        <source>Open SD Card</source>
        <translation>SD-Karte öffnen</translation>
    </message>
    <message>
        <source>Loading %1 ...</source>
        <translation>Lade %1 ...</translation>
    </message>
    <message>
        <source>Exported to %1</source>
        <translation>Exportiert nach %1</translation>
    </message>
    <message>
        <source>The sheet is of another folder: %1</source>
        <translation>Das Blatt ist aus einem anderen Ordner: %1</translation>
    </message>
    <message>
        <source>Case file written to %1</source>
        <translation>Fallakte geschrieben nach %1</translation>
    </message>
    <message>
        <source>The profile that came with the program is in use. The broken one is kept beside it as a backup.</source>
        <translation>Das mitgelieferte Profil wird verwendet. Das unlesbare bleibt als Sicherungskopie daneben liegen.</translation>
    </message>
    <message numerus="yes">
        <source>Saved the project with %n parameter(s) to %1</source>
        <translation>
            <numerusform>Projekt mit %n Parameter gespeichert: %1</numerusform>
            <numerusform>Projekt mit %n Parametern gespeichert: %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>A card is being imported into the library. Move it when that is done.</source>
        <translation>Es wird gerade eine Karte in die Bibliothek übernommen. Ziehen Sie um, wenn das fertig ist.</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogPreferences</name>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>The language changes when KOLT is started again.</source>
        <translation>Die Sprache wechselt beim nächsten Start von KOLT.</translation>
    </message>
    <message>
        <source> pixels</source>
        <translation> Pixel</translation>
    </message>
    <message>
        <source>Metric</source>
        <translation>Metrisch</translation>
    </message>
    <message>
        <source>Imperial</source>
        <translation>Imperial</translation>
    </message>
    <message>
        <source>The parameter profile that decodes the recordings</source>
        <translation>Das Parameterprofil, mit dem die Aufzeichnungen dekodiert werden</translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation>Auswählen...</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>&amp;Font size</source>
        <translation>Schrift&amp;größe</translation>
    </message>
    <message>
        <source>&amp;Units</source>
        <translation>&amp;Einheiten</translation>
    </message>
    <message>
        <source>&amp;Profile file</source>
        <translation>&amp;Profildatei</translation>
    </message>
    <message>
        <source>Contrast of the hill shading</source>
        <translation>Kontrast der Geländeschattierung</translation>
    </message>
    <message>
        <source>Brightness of the hill shading</source>
        <translation>Helligkeit der Geländeschattierung</translation>
    </message>
    <message>
        <source>Height factor of the hill shading</source>
        <translation>Höhenfaktor der Geländeschattierung</translation>
    </message>
    <message>
        <source>&amp;Tile server</source>
        <translation>&amp;Kachelserver</translation>
    </message>
    <message>
        <source>Shading &amp;contrast</source>
        <translation>Kon&amp;trast der Schattierung</translation>
    </message>
    <message>
        <source>Shading &amp;brightness</source>
        <translation>&amp;Helligkeit der Schattierung</translation>
    </message>
    <message>
        <source>Shading f&amp;actor</source>
        <translation>&amp;Faktor der Schattierung</translation>
    </message>
    <message>
        <source>Choose another profile file; OK installs it instead of this one</source>
        <translation>Andere Profildatei wählen; OK installiert sie anstelle dieser</translation>
    </message>
    <message>
        <source>Is added to all dates and clock times that are shown and exported, in hours and minutes; times on the counter stay</source>
        <translation>Kommt zu allen Daten und Uhrzeiten hinzu, die gezeigt und exportiert werden, in Stunden und Minuten; Zeiten auf dem Zähler bleiben</translation>
    </message>
    <message>
        <source>The unit&apos;s clock is taken as UTC.</source>
        <translation>Die Uhr des Geräts gilt als UTC.</translation>
    </message>
    <message>
        <source>Cloc&amp;k offset</source>
        <translation>&amp;Zeitverschiebung</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>Wie das System</translation>
    </message>
    <message>
        <source>This file is not installed. Choose another one, or Cancel.</source>
        <translation>Diese Datei ist nicht installiert. Wählen Sie eine andere oder Abbrechen.</translation>
    </message>
    <message>
        <source>L&amp;ook</source>
        <translation>&amp;Aussehen</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>No library yet</source>
        <translation>Noch keine Bibliothek</translation>
    </message>
    <message>
        <source>Where the recordings of all cards are kept, and their database</source>
        <translation>Wo die Aufzeichnungen aller Karten liegen, und ihre Datenbank</translation>
    </message>
    <message>
        <source>Choose or create a library, with its database in the same folder or on a PostgreSQL server</source>
        <translation>Eine Bibliothek wählen oder anlegen, mit der Datenbank im selben Ordner oder auf einem PostgreSQL-Server</translation>
    </message>
    <message>
        <source>L&amp;ibrary</source>
        <translation>B&amp;ibliothek</translation>
    </message>
    <message>
        <source>Move...</source>
        <translation>Umziehen...</translation>
    </message>
    <message>
        <source>Copy the library to another folder, and use it there</source>
        <translation>Die Bibliothek in einen anderen Ordner kopieren und dort benutzen</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogProfile</name>
    <message>
        <source>Message %1</source>
        <translation>Nachricht %1</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Double click or Del removes a parameter</source>
        <translation>Doppelklick oder Entf entfernt einen Parameter</translation>
    </message>
    <message>
        <source>Selected Parameters</source>
        <translation>Ausgewählte Parameter</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Uncheck all parameters</source>
        <translation>Alle Parameter abwählen</translation>
    </message>
    <message>
        <source>Confirm Selection</source>
        <translation>Auswahl bestätigen</translation>
    </message>
    <message>
        <source>Show the checked parameters on all pages</source>
        <translation>Die angekreuzten Parameter auf allen Seiten anzeigen</translation>
    </message>
    <message>
        <source>Filter parameters</source>
        <translation>Parameter filtern</translation>
    </message>
    <message>
        <source>Selected Parameters (%1)</source>
        <translation>Ausgewählte Parameter (%1)</translation>
    </message>
    <message>
        <source>Show only devices and parameters with this text in their name</source>
        <translation>Nur Geräte und Parameter mit diesem Text im Namen zeigen</translation>
    </message>
    <message>
        <source>The loaded data have no samples of it</source>
        <translation>Die geladenen Daten enthalten keine Werte davon</translation>
    </message>
    <message>
        <source>No parameter has this text.</source>
        <translation>Kein Parameter enthält diesen Text.</translation>
    </message>
    <message>
        <source>The profile has no parameters.</source>
        <translation>Das Profil hat keine Parameter.</translation>
    </message>
    <message>
        <source>No parameters are selected. Check some in the tab &quot;Parameters&quot;, and confirm.</source>
        <translation>Keine Parameter sind ausgewählt. Kreuzen Sie im Reiter „Parameter“ welche an und bestätigen Sie.</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogProfileChanges</name>
    <message>
        <source>Newer Profile</source>
        <translation>Neueres Profil</translation>
    </message>
    <message>
        <source>What would change, from your profile (version %1) to the one that came with the program (version %2). What you edited yourself is among it; your profile would be kept as a backup.</source>
        <translation>Was sich ändern würde, von Ihrem Profil (Version %1) zu dem, das mit dem Programm kam (Version %2). Auch was Sie selbst geändert haben, ist darunter; Ihr Profil bliebe als Sicherungskopie.</translation>
    </message>
    <message>
        <source>Nothing but the version and comments.</source>
        <translation>Nur die Version und Kommentare.</translation>
    </message>
    <message>
        <source>Install Newer Profile</source>
        <translation>Neueres Profil installieren</translation>
    </message>
    <message>
        <source>Keep Mine</source>
        <translation>Meines behalten</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogProfileInfo</name>
    <message>
        <source>Identification</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>Variants</source>
        <translation>Varianten</translation>
    </message>
    <message>
        <source>Active variant</source>
        <translation>Aktive Variante</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Profile Information</source>
        <translation>Profilinformationen</translation>
    </message>
    <message>
        <source>Install Profile...</source>
        <translation>Profil installieren...</translation>
    </message>
    <message>
        <source>Use another profile file; a backup of this one is kept</source>
        <translation>Eine andere Profildatei verwenden; von dieser bleibt eine Sicherungskopie</translation>
    </message>
    <message>
        <source>Search in all columns</source>
        <translation>In allen Spalten suchen</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Parameters: %1, messages: %2, devices: %3, fault matrices: %4</source>
        <translation>Parameter: %1, Nachrichten: %2, Geräte: %3, Fehlermatrizen: %4</translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>Doubtful in the file: %1</source>
        <translation>Zweifelhaft in der Datei: %1</translation>
    </message>
</context>
<context>
    <name>KOLT::DialogRecording</name>
    <message>
        <source>Wrong: figures or sums are off</source>
        <translation>Falsch: Werte oder Summen stimmen nicht</translation>
    </message>
    <message>
        <source>Doubtful: figures may be off</source>
        <translation>Zweifelhaft: Werte können falsch sein</translation>
    </message>
    <message>
        <source>Note: figures are not affected</source>
        <translation>Hinweis: Werte sind nicht betroffen</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy all findings as text</source>
        <translation>Alle Befunde als Text kopieren</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>Befund</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>What it means</source>
        <translation>Was es bedeutet</translation>
    </message>
    <message>
        <source>%1
Nothing doubtful was found in this recording.</source>
        <translation>%1
In dieser Aufzeichnung wurde nichts Zweifelhaftes gefunden.</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n finding(s). A click goes to the moment.</source>
        <translation>
            <numerusform>%1: %n Befund. Ein Klick führt zur Stelle.</numerusform>
            <numerusform>%1: %n Befunde. Ein Klick führt zur Stelle.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weitere</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::DialogReport</name>
    <message>
        <source>Engine Report</source>
        <translation>Motorbericht</translation>
    </message>
    <message>
        <source>One document for the shop and the aircraft&apos;s papers: the engine and its counters, what is doubtful in the recording, flights, the worst episodes with their graphs, faults, lamps, and the check sums of all files.</source>
        <translation>Ein Dokument für die Werkstatt und die Betriebsunterlagen: der Motor und seine Zähler, was an der Aufzeichnung zweifelhaft ist, Flüge, die schwersten Episoden mit ihren Diagrammen, Fehler, Lampen und die Prüfsummen aller Dateien.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>&amp;Paper:</source>
        <translation>&amp;Papier:</translation>
    </message>
    <message>
        <source>Preview and Print...</source>
        <translation>Vorschau und Druck...</translation>
    </message>
    <message>
        <source>Save as PDF...</source>
        <translation>Als PDF sichern...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>%1 wird gelesen</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>The folder %1 cannot be read. If it is on a card, insert the card and open the report again.</source>
        <translation>Der Ordner %1 lässt sich nicht lesen. Liegt er auf einer Karte, die Karte einlegen und den Bericht noch einmal öffnen.</translation>
    </message>
    <message>
        <source>Cycles: %1, flights: %2, episodes: %3, files: %4</source>
        <translation>Zyklen: %1, Flüge: %2, Episoden: %3, Dateien: %4</translation>
    </message>
    <message>
        <source>Incomplete: these files could not be read: %1</source>
        <translation>Unvollständig: Diese Dateien ließen sich nicht lesen: %1</translation>
    </message>
    <message>
        <source>Save as PDF</source>
        <translation>Als PDF sichern</translation>
    </message>
    <message>
        <source>PDF Files (*.pdf)</source>
        <translation>PDF-Dateien (*.pdf)</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gesichert</translation>
    </message>
</context>
<context>
    <name>KOLT::EngineLedger</name>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Every</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Last done</source>
        <translation>Zuletzt</translation>
    </message>
    <message>
        <source>Due</source>
        <translation>Fällig</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Noch</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>Maintenance</source>
        <translation>Wartung</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Known</source>
        <translation>Bekannt</translation>
    </message>
    <message>
        <source>Beyond a warning</source>
        <translation>Über einer Warnung</translation>
    </message>
    <message>
        <source>Beyond a limit</source>
        <translation>Über einem Grenzwert</translation>
    </message>
    <message>
        <source>Time in the limit bands</source>
        <translation>Zeit in den Grenzwertbereichen</translation>
    </message>
    <message>
        <source>Month</source>
        <translation>Monat</translation>
    </message>
    <message>
        <source>Hours</source>
        <translation>Stunden</translation>
    </message>
    <message>
        <source>Starts</source>
        <translation>Anlassvorgänge</translation>
    </message>
    <message>
        <source>Flights</source>
        <translation>Flüge</translation>
    </message>
    <message>
        <source>In the air</source>
        <translation>In der Luft</translation>
    </message>
    <message>
        <source>Fuel l</source>
        <translation>Kraftstoff l</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Episoden</translation>
    </message>
    <message>
        <source>without a date</source>
        <translation>ohne Datum</translation>
    </message>
    <message>
        <source>Months</source>
        <translation>Monate</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>%1 h</source>
        <translation>%1 h</translation>
    </message>
    <message numerus="yes">
        <source>%n month(s)</source>
        <translation>
            <numerusform>%n Monat</numerusform>
            <numerusform>%n Monate</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 oder %2</translation>
    </message>
    <message>
        <source>never</source>
        <translation>nie</translation>
    </message>
    <message>
        <source>about %1</source>
        <translation>etwa am %1</translation>
    </message>
    <message>
        <source>%1 h over</source>
        <translation>%1 h überzogen</translation>
    </message>
    <message numerus="yes">
        <source>%n day(s)</source>
        <translation>
            <numerusform>%n Tag</numerusform>
            <numerusform>%n Tage</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n day(s) over</source>
        <translation>
            <numerusform>%n Tag überzogen</numerusform>
            <numerusform>%n Tage überzogen</numerusform>
        </translation>
    </message>
    <message>
        <source>due soon</source>
        <translation>bald fällig</translation>
    </message>
    <message>
        <source>overdue</source>
        <translation>überfällig</translation>
    </message>
    <message>
        <source>not due</source>
        <translation>nicht fällig</translation>
    </message>
    <message>
        <source>Engine</source>
        <translation>Motor</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Geräte</translation>
    </message>
    <message>
        <source>Recorded</source>
        <translation>Aufgezeichnet</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>Hours of the engine</source>
        <translation>Stunden des Motors</translation>
    </message>
    <message>
        <source>Recorded hours</source>
        <translation>Aufgezeichnete Stunden</translation>
    </message>
    <message>
        <source>Recorded starts</source>
        <translation>Aufgezeichnete Anlassvorgänge</translation>
    </message>
    <message>
        <source>Unit&apos;s counter</source>
        <translation>Zähler des Geräts</translation>
    </message>
    <message>
        <source>Unit&apos;s starts</source>
        <translation>Anlassvorgänge des Geräts</translation>
    </message>
    <message numerus="yes">
        <source>%n start(s)</source>
        <translation>
            <numerusform>%n Anlassvorgang</numerusform>
            <numerusform>%n Anlassvorgänge</numerusform>
        </translation>
    </message>
    <message>
        <source>Flown without a card</source>
        <translation>Ohne Karte geflogen</translation>
    </message>
    <message>
        <source>Fuel</source>
        <translation>Kraftstoff</translation>
    </message>
    <message>
        <source>%1 l</source>
        <translation>%1 l</translation>
    </message>
    <message>
        <source>%1, of them %2 beyond a limit</source>
        <translation>%1, davon %2 über einem Grenzwert</translation>
    </message>
    <message>
        <source>Ledger of engine %1</source>
        <translation>Motorakte %1</translation>
    </message>
</context>
<context>
    <name>KOLT::EngineReport</name>
    <message>
        <source>Cycle %1</source>
        <translation>Zyklus %1</translation>
    </message>
    <message>
        <source>Cycle %1, flight %2</source>
        <translation>Zyklus %1, Flug %2</translation>
    </message>
    <message>
        <source>at least %1</source>
        <translation>mindestens %1</translation>
    </message>
    <message>
        <source>No.</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Episode</source>
        <translation>Episode</translation>
    </message>
    <message>
        <source>Cycle, flight</source>
        <translation>Zyklus, Flug</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Beginn</translation>
    </message>
    <message>
        <source>Peak</source>
        <translation>Spitzenwert</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Beyond</source>
        <translation>Jenseits</translation>
    </message>
    <message>
        <source>Phase</source>
        <translation>Phase</translation>
    </message>
    <message>
        <source>%1 (cycle %2)</source>
        <translation>%1 (Zyklus %2)</translation>
    </message>
    <message>
        <source>Beyond a threshold at the first sample, which is no episode: %1</source>
        <translation>Schon beim ersten Wert jenseits einer Schwelle, was keine Episode ist: %1</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Times</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Cycle</source>
        <translation>Zyklus</translation>
    </message>
    <message>
        <source>to the end of the recording</source>
        <translation>bis zum Ende der Aufzeichnung</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Episoden</translation>
    </message>
    <message>
        <source>Limits exceeded: %1</source>
        <translation>Grenzwerte überschritten: %1</translation>
    </message>
    <message>
        <source>warnings: %1</source>
        <translation>Warnungen: %1</translation>
    </message>
    <message>
        <source>lamps alone: %1</source>
        <translation>Lampen allein: %1</translation>
    </message>
    <message>
        <source>No threshold was exceeded.</source>
        <translation>Keine Schwelle wurde überschritten.</translation>
    </message>
    <message>
        <source>Other episodes</source>
        <translation>Weitere Episoden</translation>
    </message>
    <message>
        <source>%1 less severe episodes are not listed.</source>
        <translation>%1 weniger schwere Episoden sind nicht aufgeführt.</translation>
    </message>
    <message>
        <source>Faults</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>No fault was set.</source>
        <translation>Kein Fehler war gesetzt.</translation>
    </message>
    <message>
        <source>Warning lamps</source>
        <translation>Warnlampen</translation>
    </message>
    <message>
        <source>No lamp came on.</source>
        <translation>Keine Lampe ging an.</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
    <message>
        <source>not recorded</source>
        <translation>nicht aufgezeichnet</translation>
    </message>
    <message>
        <source>%1 (at the begin %2)</source>
        <translation>%1 (am Anfang %2)</translation>
    </message>
    <message>
        <source>Engine serial number</source>
        <translation>Seriennummer des Motors</translation>
    </message>
    <message>
        <source>Engine type</source>
        <translation>Motortyp</translation>
    </message>
    <message>
        <source>Unit serial number</source>
        <translation>Seriennummer des Geräts</translation>
    </message>
    <message>
        <source>Unit type</source>
        <translation>Gerätetyp</translation>
    </message>
    <message>
        <source>Software of lane A</source>
        <translation>Software von Kanal A</translation>
    </message>
    <message>
        <source>Software of lane B</source>
        <translation>Software von Kanal B</translation>
    </message>
    <message>
        <source>Software of the display</source>
        <translation>Software der Anzeige</translation>
    </message>
    <message>
        <source>Engine hours</source>
        <translation>Betriebsstunden</translation>
    </message>
    <message>
        <source>Engine starts</source>
        <translation>Anlassvorgänge</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Einheiten</translation>
    </message>
    <message>
        <source>imperial; the figures of flights are metric</source>
        <translation>imperial; die Zahlen der Flüge sind metrisch</translation>
    </message>
    <message>
        <source>metric</source>
        <translation>metrisch</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>Uhr</translation>
    </message>
    <message>
        <source>Made on</source>
        <translation>Erstellt am</translation>
    </message>
    <message>
        <source>%1 with %2</source>
        <translation>%1 mit %2</translation>
    </message>
    <message>
        <source>Engine Report</source>
        <translation>Motorbericht</translation>
    </message>
    <message>
        <source>wrong</source>
        <translation>falsch</translation>
    </message>
    <message>
        <source>doubtful</source>
        <translation>zweifelhaft</translation>
    </message>
    <message>
        <source>note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Figures</source>
        <translation>Zahlen</translation>
    </message>
    <message>
        <source>From, to</source>
        <translation>Von, bis</translation>
    </message>
    <message>
        <source>Finding</source>
        <translation>Befund</translation>
    </message>
    <message>
        <source>How far to trust the recording</source>
        <translation>Wie weit der Aufzeichnung zu trauen ist</translation>
    </message>
    <message>
        <source>Incomplete: these files could not be read: %1</source>
        <translation>Unvollständig: Diese Dateien ließen sich nicht lesen: %1</translation>
    </message>
    <message>
        <source>Nothing is doubtful in the recording.</source>
        <translation>An der Aufzeichnung ist nichts zweifelhaft.</translation>
    </message>
    <message>
        <source>Flights</source>
        <translation>Flüge</translation>
    </message>
    <message>
        <source>*: doubtful, see the findings above.</source>
        <translation>*: zweifelhaft, siehe die Befunde oben.</translation>
    </message>
    <message>
        <source>Fuel lane A [l]</source>
        <translation>Kraftstoff Kanal A [l]</translation>
    </message>
    <message>
        <source>Fuel lane B [l]</source>
        <translation>Kraftstoff Kanal B [l]</translation>
    </message>
    <message>
        <source>Fuel [l]</source>
        <translation>Kraftstoff [l]</translation>
    </message>
    <message>
        <source>Minimum altitude [m]</source>
        <translation>Kleinste Höhe [m]</translation>
    </message>
    <message>
        <source>Maximum altitude [m]</source>
        <translation>Größte Höhe [m]</translation>
    </message>
    <message>
        <source>Altitude gain [m]</source>
        <translation>Höhengewinn [m]</translation>
    </message>
    <message>
        <source>Climb rate [m/s]</source>
        <translation>Steigrate [m/s]</translation>
    </message>
    <message>
        <source>Descent rate [m/s]</source>
        <translation>Sinkrate [m/s]</translation>
    </message>
    <message>
        <source>Maximum ground speed [km/h]</source>
        <translation>Größte Geschwindigkeit über Grund [km/h]</translation>
    </message>
    <message>
        <source>Time per 100 m [s]</source>
        <translation>Zeit je 100 m [s]</translation>
    </message>
    <message>
        <source>Fuel per 100 m [l]</source>
        <translation>Kraftstoff je 100 m [l]</translation>
    </message>
    <message>
        <source>Take-off distance [m]</source>
        <translation>Startstrecke [m]</translation>
    </message>
    <message>
        <source>Take-off distance over 15 m [m]</source>
        <translation>Startstrecke bis 15 m [m]</translation>
    </message>
    <message>
        <source>Statistics of the flights</source>
        <translation>Statistik der Flüge</translation>
    </message>
    <message>
        <source>No flight was found.</source>
        <translation>Es wurde kein Flug gefunden.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>Bytes</translation>
    </message>
    <message>
        <source>SHA-256</source>
        <translation>SHA-256</translation>
    </message>
    <message>
        <source>could not be read</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Engine report, engine %1</source>
        <translation>Motorbericht, Motor %1</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>%1 (every cycle)</source>
        <translation>%1 (in jedem Zyklus)</translation>
    </message>
</context>
<context>
    <name>KOLT::EngineWindow</name>
    <message>
        <source>Engine</source>
        <translation>Motor</translation>
    </message>
    <message>
        <source>Maintenance</source>
        <translation>Wartung</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Episoden</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Noch</translation>
    </message>
    <message>
        <source>Due</source>
        <translation>Fällig</translation>
    </message>
    <message>
        <source>Every</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Last done</source>
        <translation>Zuletzt</translation>
    </message>
    <message>
        <source>Add...</source>
        <translation>Hinzufügen...</translation>
    </message>
    <message>
        <source>A new maintenance limit</source>
        <translation>Eine neue Wartungsgrenze</translation>
    </message>
    <message>
        <source>Done now</source>
        <translation>Jetzt erledigt</translation>
    </message>
    <message>
        <source>It was done today, at the present hours</source>
        <translation>Es wurde heute erledigt, bei den jetzigen Stunden</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>Ändern...</translation>
    </message>
    <message>
        <source>Change the chosen limit</source>
        <translation>Die gewählte Grenze ändern</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the chosen limit</source>
        <translation>Die gewählte Grenze entfernen</translation>
    </message>
    <message>
        <source>Hours before...</source>
        <translation>Stunden davor...</translation>
    </message>
    <message>
        <source>Hours of the engine at its first recorded run, if they are not those of the unit&apos;s counter</source>
        <translation>Stunden des Motors beim ersten aufgezeichneten Lauf, wenn es nicht die des Zählers im Gerät sind</translation>
    </message>
    <message>
        <source>When</source>
        <translation>Wann</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>Beyond the warning</source>
        <translation>Über der Warnung</translation>
    </message>
    <message>
        <source>Beyond the limit</source>
        <translation>Über dem Grenzwert</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>By</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>Print...</source>
        <translation>Drucken...</translation>
    </message>
    <message>
        <source>Print the ledger, or save it as a PDF file</source>
        <translation>Die Motorakte drucken oder als PDF-Datei sichern</translation>
    </message>
    <message>
        <source>Copy picture</source>
        <translation>Bild kopieren</translation>
    </message>
    <message>
        <source>Copy months and limit bands as a picture</source>
        <translation>Monate und Grenzwertbereiche als Bild kopieren</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>limit</source>
        <translation>Grenzwert</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Ledger of engine %1</source>
        <translation>Motorakte %1</translation>
    </message>
    <message>
        <source>KOLT</source>
        <translation>KOLT</translation>
    </message>
    <message>
        <source>Remove the maintenance limit &quot;%1&quot;?</source>
        <translation>Die Wartungsgrenze „%1“ entfernen?</translation>
    </message>
    <message>
        <source>Note on engine %1</source>
        <translation>Notiz zu Motor %1</translation>
    </message>
    <message>
        <source>Remove this note?

%1</source>
        <translation>Diese Notiz entfernen?

%1</translation>
    </message>
    <message>
        <source>Hours Before</source>
        <translation>Stunden davor</translation>
    </message>
    <message>
        <source>Hours of engine %1 at its first recorded run, %2:</source>
        <translation>Stunden von Motor %1 beim ersten aufgezeichneten Lauf, %2:</translation>
    </message>
    <message>
        <source>Installations...</source>
        <translation>Einbauten...</translation>
    </message>
    <message>
        <source>Say which engine was in which unit from when to when</source>
        <translation>Sagen, welcher Motor von wann bis wann in welchem Gerät war</translation>
    </message>
    <message>
        <source>No maintenance limits yet. Add what is to be done every 100 h or every year.</source>
        <translation>Noch keine Wartungsgrenzen. Fügen Sie hinzu, was alle 100 h oder jedes Jahr zu tun ist.</translation>
    </message>
    <message>
        <source>No quantity was beyond a limit.</source>
        <translation>Keine Größe war jenseits eines Grenzwerts.</translation>
    </message>
    <message>
        <source>No notes on this engine yet.</source>
        <translation>Noch keine Notizen zu diesem Motor.</translation>
    </message>
    <message>
        <source>A new note on this engine</source>
        <translation>Eine neue Notiz zu diesem Motor</translation>
    </message>
    <message>
        <source>Change the chosen note</source>
        <translation>Die ausgewählte Notiz ändern</translation>
    </message>
    <message>
        <source>Remove the chosen note</source>
        <translation>Die ausgewählte Notiz entfernen</translation>
    </message>
</context>
<context>
    <name>KOLT::Episode</name>
    <message>
        <source>for at least %1 s</source>
        <translation>mindestens %1 s lang</translation>
    </message>
    <message>
        <source>for %1 s</source>
        <translation>%1 s lang</translation>
    </message>
    <message>
        <source>1 episode</source>
        <translation>1 Episode</translation>
    </message>
    <message>
        <source>%1 episodes</source>
        <translation>%1 Episoden</translation>
    </message>
    <message>
        <source>1 crossing</source>
        <translation>1 Überschreitung</translation>
    </message>
    <message>
        <source>%1 crossings</source>
        <translation>%1 Überschreitungen</translation>
    </message>
</context>
<context>
    <name>KOLT::EpisodeCard</name>
    <message>
        <source>Graph of the episode</source>
        <translation>Graph der Episode</translation>
    </message>
    <message>
        <source>Show in graph</source>
        <translation>Im Graphen zeigen</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copy the figures of the episode</source>
        <translation>Die Zahlen der Episode kopieren</translation>
    </message>
    <message>
        <source>Go to the episode in the graph</source>
        <translation>Zur Episode im Graphen springen</translation>
    </message>
    <message>
        <source>Case file</source>
        <translation>Fallakte</translation>
    </message>
    <message>
        <source>Write what was recorded from 30 s before to 30 s after into a folder that opens like a card</source>
        <translation>Die Aufzeichnung von 30 s davor bis 30 s danach in einen Ordner schreiben, der sich wie eine Karte öffnen lässt</translation>
    </message>
    <message>
        <source>Figures of the episode</source>
        <translation>Zahlen der Episode</translation>
    </message>
    <message>
        <source>Zip File for Mail...</source>
        <translation>Zip-Datei zum Versenden...</translation>
    </message>
</context>
<context>
    <name>KOLT::EpisodeFigures</name>
    <message>
        <source>at least %1</source>
        <translation>mindestens %1</translation>
    </message>
    <message>
        <source>Peak</source>
        <translation>Spitzenwert</translation>
    </message>
    <message>
        <source>%1 at %2, %3</source>
        <translation>%1 um %2, %3</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Beyond warning</source>
        <translation>Jenseits der Warnung</translation>
    </message>
    <message>
        <source>Beyond limit</source>
        <translation>Jenseits des Grenzwerts</translation>
    </message>
    <message>
        <source>Crossings</source>
        <translation>Überschreitungen</translation>
    </message>
    <message>
        <source>Phase</source>
        <translation>Phase</translation>
    </message>
    <message>
        <source>Engine speed</source>
        <translation>Drehzahl</translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation>Gashebel</translation>
    </message>
    <message>
        <source>Altitude</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Ground speed</source>
        <translation>Geschwindigkeit über Grund</translation>
    </message>
    <message>
        <source>Of its group</source>
        <translation>In seiner Gruppe</translation>
    </message>
    <message>
        <source>limit</source>
        <translation>Grenzwert</translation>
    </message>
    <message>
        <source>warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>lamp</source>
        <translation>Lampe</translation>
    </message>
    <message>
        <source>Time beyond levels</source>
        <translation>Zeit jenseits von</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
</context>
<context>
    <name>KOLT::EventTable</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
</context>
<context>
    <name>KOLT::EventTexts</name>
    <message>
        <source>Limit</source>
        <translation>Grenzwert</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>until the end of the data</source>
        <translation>bis zum Ende der Daten</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Clock time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Peak value</source>
        <translation>Spitzenwert</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Engine speed [rpm]</source>
        <translation>Motordrehzahl [rpm]</translation>
    </message>
    <message>
        <source>Peak value: %1
Duration until normal: %2
Engine speed: %3</source>
        <translation>Spitzenwert: %1
Dauer bis normal: %2
Motordrehzahl: %3</translation>
    </message>
</context>
<context>
    <name>KOLT::Export</name>
    <message>
        <source>No position was recorded, so there is no flight path to export.</source>
        <translation>Es wurde keine Position aufgezeichnet, daher gibt es keinen Flugweg zu exportieren.</translation>
    </message>
    <message>
        <source>%1 positions, two a second</source>
        <translation>%1 Positionen, zwei je Sekunde</translation>
    </message>
    <message numerus="yes">
        <source>%n flight(s)</source>
        <translation>
            <numerusform>%n Flug</numerusform>
            <numerusform>%n Flüge</numerusform>
        </translation>
    </message>
    <message>
        <source>Flight %1</source>
        <translation>Flug %1</translation>
    </message>
    <message>
        <source>Cycle %1</source>
        <translation>Zyklus %1</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Altitude</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>On the ground</source>
        <translation>Am Boden</translation>
    </message>
    <message>
        <source>Flight path</source>
        <translation>Flugweg</translation>
    </message>
    <message>
        <source>Curtain</source>
        <translation>Vorhang</translation>
    </message>
    <message>
        <source>Playback</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Positions</source>
        <translation>Positionen</translation>
    </message>
    <message>
        <source>Exceeded</source>
        <translation>Überschreitungen</translation>
    </message>
    <message>
        <source>No position was recorded.</source>
        <translation>Es wurde keine Position aufgezeichnet.</translation>
    </message>
    <message>
        <source>The first %1 exceedances are marked; %2 more are left out.</source>
        <translation>Die ersten %1 Überschreitungen sind markiert; %2 weitere sind ausgelassen.</translation>
    </message>
    <message>
        <source>Recording: %1</source>
        <translation>Aufzeichnung: %1</translation>
    </message>
    <message>
        <source>%1 from %2</source>
        <translation>%1 ab %2</translation>
    </message>
    <message>
        <source>%1 below %2</source>
        <translation>%1 unter %2</translation>
    </message>
    <message>
        <source>Take-off %1</source>
        <translation>Start %1</translation>
    </message>
    <message>
        <source>Landing %1</source>
        <translation>Landung %1</translation>
    </message>
    <message>
        <source>The SQLite plug-in of Qt is missing on this computer.</source>
        <translation>Auf diesem Rechner fehlt das SQLite-Plug-in von Qt.</translation>
    </message>
</context>
<context>
    <name>KOLT::FaultListModel</name>
    <message>
        <source>until the end of the data</source>
        <translation>bis zum Ende der Daten</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Info</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Fault</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>No class</source>
        <translation>Ohne Klasse</translation>
    </message>
    <message>
        <source>Begin</source>
        <translation>Anfang</translation>
    </message>
    <message>
        <source>Duration</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>End</source>
        <translation>Ende</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>Klasse</translation>
    </message>
    <message>
        <source>Begin [s]</source>
        <translation>Anfang [s]</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Clock time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>End [s]</source>
        <translation>Ende [s]</translation>
    </message>
    <message>
        <source>Duration [s]</source>
        <translation>Dauer [s]</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
</context>
<context>
    <name>KOLT::FaultSnapshot</name>
    <message>
        <source>Fault %1, set at %2 (%3), for %4</source>
        <translation>Fehler %1, gesetzt um %2 (%3), %4 lang</translation>
    </message>
    <message>
        <source>at least %1 s</source>
        <translation>mindestens %1 s</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Auf</translation>
    </message>
    <message>
        <source>30 s before, mean</source>
        <translation>30 s davor, Mittel</translation>
    </message>
    <message>
        <source>At the fault</source>
        <translation>Beim Fehler</translation>
    </message>
    <message>
        <source>Farthest within 30 s</source>
        <translation>Am weitesten entfernt in 30 s</translation>
    </message>
    <message>
        <source>30 s after</source>
        <translation>30 s danach</translation>
    </message>
    <message>
        <source>What switched within 30 s</source>
        <translation>Was innerhalb von 30 s umschaltete</translation>
    </message>
    <message>
        <source>What changed</source>
        <translation>Was sich änderte</translation>
    </message>
</context>
<context>
    <name>KOLT::FaultTable</name>
    <message>
        <source>Occurrences of the faults</source>
        <translation>Auftreten der Fehler</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Save list as CSV</source>
        <translation>Liste als CSV sichern</translation>
    </message>
    <message>
        <source>CSV Files (*.csv)</source>
        <translation>CSV-Dateien (*.csv)</translation>
    </message>
</context>
<context>
    <name>KOLT::FlightPhase</name>
    <message>
        <source>Engine start</source>
        <translation>Anlassen</translation>
    </message>
    <message>
        <source>On the ground</source>
        <translation>Am Boden</translation>
    </message>
    <message>
        <source>Take-off</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Climb</source>
        <translation>Steigflug</translation>
    </message>
    <message>
        <source>Cruise</source>
        <translation>Reiseflug</translation>
    </message>
    <message>
        <source>Descent</source>
        <translation>Sinkflug</translation>
    </message>
    <message>
        <source>Landing</source>
        <translation>Landung</translation>
    </message>
    <message>
        <source>Shutdown</source>
        <translation>Abstellen</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unbekannt</translation>
    </message>
</context>
<context>
    <name>KOLT::GraphCommandBar</name>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Zoom 1:1</source>
        <translation>Ganzer Flug</translation>
    </message>
    <message>
        <source>Zoom Marker</source>
        <translation>Auf Marker zoomen</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>Alles löschen</translation>
    </message>
    <message>
        <source>Automatic Mode</source>
        <translation>Automatik</translation>
    </message>
    <message>
        <source>Split Mode</source>
        <translation>Getrennte Bänder</translation>
    </message>
    <message>
        <source>Single Graph Mode</source>
        <translation>Gemeinsamer Graph</translation>
    </message>
    <message>
        <source>Reset all to default</source>
        <translation>Alles zurücksetzen</translation>
    </message>
    <message>
        <source>Setup</source>
        <translation>Einrichten</translation>
    </message>
    <message>
        <source>Snapshot</source>
        <translation>Bild sichern</translation>
    </message>
    <message>
        <source>Copy picture</source>
        <translation>Bild kopieren</translation>
    </message>
    <message>
        <source>Oscilloscope Setup</source>
        <translation>Oszilloskop einrichten</translation>
    </message>
    <message>
        <source>Auto</source>
        <translation>Auto</translation>
    </message>
</context>
<context>
    <name>KOLT::GraphJump</name>
    <message>
        <source>Added to the selected parameters: %1</source>
        <translation>Zu den ausgewählten Parametern hinzugefügt: %1</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
</context>
<context>
    <name>KOLT::GraphScene</name>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... und %n weitere</numerusform>
            <numerusform>... und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>max %1</source>
        <translation>max %1</translation>
    </message>
    <message>
        <source>min %1</source>
        <translation>min %1</translation>
    </message>
    <message>
        <source>%1: both ends of the band&apos;s scale, %2 and %3 %4</source>
        <translation>%1: die beiden Enden der Skala, %2 und %3 %4</translation>
    </message>
</context>
<context>
    <name>KOLT::InstallProfile</name>
    <message>
        <source>Install Profile</source>
        <translation>Profil installieren</translation>
    </message>
    <message>
        <source>Not a valid KOLT profile !</source>
        <translation>Kein gültiges KOLT-Profil!</translation>
    </message>
    <message>
        <source>Profile Files (*.xml);;All Files (*)</source>
        <translation>Profildateien (*.xml);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>The profile
%1
is installed as
%2
The previous one is kept beside it as a backup.</source>
        <translation>Das Profil
%1
ist installiert als
%2
Das vorherige bleibt daneben als Sicherung erhalten.</translation>
    </message>
    <message>
        <source>This profile is already in use:
%1</source>
        <translation>Dieses Profil wird bereits verwendet:
%1</translation>
    </message>
    <message>
        <source>The profile could not be written to
%1
Please check that the folder can be written and is not full. The previous profile is still in use.</source>
        <translation>Das Profil konnte nicht geschrieben werden:
%1
Bitte prüfen Sie, ob der Ordner beschreibbar und nicht voll ist. Das vorherige Profil wird weiter verwendet.</translation>
    </message>
</context>
<context>
    <name>KOLT::InstallationEditor</name>
    <message>
        <source>&amp;From</source>
        <translation>&amp;Von</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>&amp;Bis</translation>
    </message>
    <message>
        <source>Installation</source>
        <translation>Einbau</translation>
    </message>
    <message>
        <source>Serial number of the unit that records</source>
        <translation>Seriennummer des Geräts, das aufzeichnet</translation>
    </message>
    <message>
        <source>Serial number of the engine</source>
        <translation>Seriennummer des Motors</translation>
    </message>
    <message>
        <source>The first day; without it, from the beginning</source>
        <translation>Der erste Tag; ohne ihn von Anfang an</translation>
    </message>
    <message>
        <source>The last day; without it, until now</source>
        <translation>Der letzte Tag; ohne ihn bis jetzt</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>&amp;Gerät</translation>
    </message>
    <message>
        <source>&amp;Engine</source>
        <translation>&amp;Motor</translation>
    </message>
</context>
<context>
    <name>KOLT::Installations</name>
    <message>
        <source>It ends on %1, before it begins on %2.</source>
        <translation>Er endet am %1, bevor er am %2 beginnt.</translation>
    </message>
    <message>
        <source>Unit %1 has engine %2 then: %3. A day belongs to one engine.</source>
        <translation>Im Gerät %1 ist dann der Motor %2: %3. Ein Tag gehört zu einem Motor.</translation>
    </message>
    <message>
        <source>Engine %1 is in unit %2 then: %3.</source>
        <translation>Der Motor %1 ist dann im Gerät %2: %3.</translation>
    </message>
    <message>
        <source>always</source>
        <translation>immer</translation>
    </message>
    <message>
        <source>from %1 until now</source>
        <translation>vom %1 bis jetzt</translation>
    </message>
    <message>
        <source>until %1</source>
        <translation>bis zum %1</translation>
    </message>
    <message>
        <source>from %1 to %2</source>
        <translation>vom %1 bis zum %2</translation>
    </message>
</context>
<context>
    <name>KOLT::InstallationsWindow</name>
    <message>
        <source>Installations</source>
        <translation>Einbauten</translation>
    </message>
    <message>
        <source>Which engine was in which unit. Where nothing is said here, the engine counts that the recordings name.</source>
        <translation>Welcher Motor in welchem Gerät war. Wo hier nichts steht, zählt der Motor, den die Aufzeichnungen nennen.</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Engine</source>
        <translation>Motor</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>By</source>
        <translation>Verfasser</translation>
    </message>
    <message>
        <source>Add...</source>
        <translation>Hinzufügen...</translation>
    </message>
    <message>
        <source>Say which engine was in a unit</source>
        <translation>Sagen, welcher Motor in einem Gerät war</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>Ändern...</translation>
    </message>
    <message>
        <source>Change the chosen entry</source>
        <translation>Den gewählten Eintrag ändern</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the chosen entry</source>
        <translation>Den gewählten Eintrag entfernen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>the beginning</source>
        <translation>Anfang an</translation>
    </message>
    <message>
        <source>now</source>
        <translation>jetzt</translation>
    </message>
    <message>
        <source>Nothing is entered yet.</source>
        <translation>Es ist noch nichts eingetragen.</translation>
    </message>
    <message>
        <source>These entries contradict each other: %1 That which begins later counts.</source>
        <translation>Diese Einträge widersprechen sich: %1 Es zählt der, der später beginnt.</translation>
    </message>
    <message>
        <source>Remove engine %1 from unit %2, %3?</source>
        <translation>Motor %1 im Gerät %2, %3, entfernen?</translation>
    </message>
    <message>
        <source>KOLT</source>
        <translation>KOLT</translation>
    </message>
</context>
<context>
    <name>KOLT::LedgerChart</name>
    <message>
        <source>Hours of each month, and its flights</source>
        <translation>Stunden jedes Monats, darüber seine Flüge</translation>
    </message>
    <message>
        <source>Time beyond a warning, beyond a limit</source>
        <translation>Zeit über einer Warnung, über einem Grenzwert</translation>
    </message>
</context>
<context>
    <name>KOLT::LedgerView</name>
    <message>
        <source>Months and limit bands</source>
        <translation>Monate und Grenzwertbereiche</translation>
    </message>
</context>
<context>
    <name>KOLT::Library::Archive</name>
    <message>
        <source>The library folder %1 is not there. Is its disk or network folder connected?</source>
        <translation>Der Ordner der Bibliothek %1 ist nicht da. Ist seine Platte oder sein Netzwerkordner verbunden?</translation>
    </message>
    <message>
        <source>The folder %1 holds no library. Is its disk or network folder connected?</source>
        <translation>Der Ordner %1 enthält keine Bibliothek. Ist seine Platte oder sein Netzwerkordner verbunden?</translation>
    </message>
    <message>
        <source>The library %1 cannot be read: %2</source>
        <translation>Die Bibliothek %1 kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>The library %1 was made by a later version of KOLT. Please install that version.</source>
        <translation>Die Bibliothek %1 stammt von einer neueren Version von KOLT. Bitte installieren Sie diese.</translation>
    </message>
    <message>
        <source>The folder %1 is not empty. Please choose an empty or new folder for the library.</source>
        <translation>Der Ordner %1 ist nicht leer. Bitte wählen Sie einen leeren oder neuen Ordner für die Bibliothek.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be created. Is its disk or network folder connected?</source>
        <translation>Der Ordner %1 kann nicht angelegt werden. Ist seine Platte oder sein Netzwerkordner verbunden?</translation>
    </message>
    <message>
        <source>The library %1 cannot be written: %2</source>
        <translation>In die Bibliothek %1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>KOLT::Library::ArchiveLock</name>
    <message>
        <source>No file can be written to the library folder: %1</source>
        <translation>In den Ordner der Bibliothek kann keine Datei geschrieben werden: %1</translation>
    </message>
    <message>
        <source>The library is in use by another program on the computer &quot;%1&quot;. Please try again later. If there is none, delete the file %2.</source>
        <translation>Die Bibliothek wird von einem anderen Programm auf dem Rechner „%1“ benutzt. Bitte versuchen Sie es später noch einmal. Wenn dort keines läuft, löschen Sie die Datei %2.</translation>
    </message>
</context>
<context>
    <name>KOLT::Library::ArchiveMove</name>
    <message>
        <source>The folder %1 of the library is not there. Is its disk connected?</source>
        <translation>Der Ordner %1 der Bibliothek ist nicht da. Ist seine Platte angeschlossen?</translation>
    </message>
    <message>
        <source>One of the two folders lies in the other. Choose a folder beside the library, or on another disk.</source>
        <translation>Einer der beiden Ordner liegt im anderen. Wählen Sie einen Ordner neben der Bibliothek oder auf einer anderen Platte.</translation>
    </message>
    <message>
        <source>There is no folder %1. Is its disk connected?</source>
        <translation>Es gibt keinen Ordner %1. Ist seine Platte angeschlossen?</translation>
    </message>
    <message>
        <source>The folder %1 is not empty. Choose an empty or a new folder.</source>
        <translation>Der Ordner %1 ist nicht leer. Wählen Sie einen leeren oder neuen Ordner.</translation>
    </message>
    <message>
        <source>A card is being imported into the library. Wait until it is done.</source>
        <translation>Es wird gerade eine Karte in die Bibliothek übernommen. Warten Sie, bis das fertig ist.</translation>
    </message>
    <message>
        <source>The disk has no room for the library: %1 are needed, %2 are free. Nothing was copied.</source>
        <translation>Die Platte hat keinen Platz für die Bibliothek: %1 werden gebraucht, %2 sind frei. Es wurde nichts kopiert.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be created. Is its disk still connected?</source>
        <translation>Der Ordner %1 lässt sich nicht anlegen. Ist seine Platte noch angeschlossen?</translation>
    </message>
    <message>
        <source>%1 cannot be read: %2</source>
        <translation>%1 lässt sich nicht lesen: %2</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 lässt sich nicht schreiben: %2</translation>
    </message>
</context>
<context>
    <name>KOLT::Library::ArchiveTrash</name>
    <message>
        <source>%1 cannot be moved to the trash of the library: %2</source>
        <translation>%1 kann nicht in den Papierkorb der Bibliothek verschoben werden: %2</translation>
    </message>
    <message>
        <source>The library has no record of this import.</source>
        <translation>Die Bibliothek weiß nichts von dieser Übernahme.</translation>
    </message>
</context>
<context>
    <name>KOLT::Library::CardImport</name>
    <message>
        <source>The folder %1 cannot be read. Is the card inserted?</source>
        <translation>Der Ordner %1 kann nicht gelesen werden. Ist die Karte eingelegt?</translation>
    </message>
    <message>
        <source>There are no recordings in %1.</source>
        <translation>In %1 sind keine Aufzeichnungen.</translation>
    </message>
    <message>
        <source>The library lies in the folder of the recordings, %1, to which nothing is written. Please move the library to another folder.</source>
        <translation>Die Bibliothek liegt im Ordner der Aufzeichnungen, %1, in den nichts geschrieben wird. Bitte verschieben Sie die Bibliothek in einen anderen Ordner.</translation>
    </message>
    <message>
        <source>The folder %1 is part of the library.</source>
        <translation>Der Ordner %1 gehört zur Bibliothek.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be created.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The disk of the library has no room for this card: %1 are needed, %2 are free. Nothing was copied.</source>
        <translation>Auf der Platte der Bibliothek ist kein Platz für diese Karte: Nötig sind %1, frei sind %2. Es wurde nichts kopiert.</translation>
    </message>
    <message>
        <source>Its copy cannot be read.</source>
        <translation>Ihre Kopie kann nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>KOLT::Library::DialogImport</name>
    <message>
        <source>Import Card</source>
        <translation>Karte übernehmen</translation>
    </message>
    <message>
        <source>Copies the recordings of a card into your library. Each file is read back from the disk and compared before it counts as safe. Nothing on the card is changed or deleted.</source>
        <translation>Kopiert die Aufzeichnungen einer Karte in Ihre Bibliothek. Jede Datei wird von der Platte zurückgelesen und verglichen, bevor sie als sicher gilt. Auf der Karte wird nichts geändert oder gelöscht.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>Files that are not safe</source>
        <translation>Dateien, die nicht sicher sind</translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation>Auswählen...</translation>
    </message>
    <message>
        <source>&amp;Card:</source>
        <translation>&amp;Karte:</translation>
    </message>
    <message>
        <source>Folder of the Card</source>
        <translation>Ordner der Karte</translation>
    </message>
    <message>
        <source>&amp;Library:</source>
        <translation>&amp;Bibliothek:</translation>
    </message>
    <message>
        <source>Folder of the Library</source>
        <translation>Ordner der Bibliothek</translation>
    </message>
    <message>
        <source>A folder of your choice, also on a disk that several computers share. The first import creates it.</source>
        <translation>Ein Ordner Ihrer Wahl, auch auf einer Platte, die sich mehrere Rechner teilen. Die erste Übernahme legt ihn an.</translation>
    </message>
    <message>
        <source>Take Back an Import...</source>
        <translation>Übernahme zurücknehmen...</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Choose where your library is to be. It needs as much room as all cards that you will ever import.</source>
        <translation>Wählen Sie, wo Ihre Bibliothek liegen soll. Sie braucht so viel Platz wie alle Karten, die Sie je übernehmen.</translation>
    </message>
    <message>
        <source>Reading the card</source>
        <translation>Die Karte wird gelesen</translation>
    </message>
</context>
<context>
    <name>KOLT::Library::DialogImports</name>
    <message>
        <source>Imports of the Library</source>
        <translation>Übernahmen der Bibliothek</translation>
    </message>
    <message>
        <source>Taking back an import moves the files that it added to the folder &quot;trash&quot; of the library, except for those that another card had as well. Nothing is deleted.</source>
        <translation>Wird eine Übernahme zurückgenommen, kommen die Dateien, die sie hinzugefügt hat, in den Ordner „trash“ der Bibliothek, außer denen, die auch auf einer anderen Karte waren. Gelöscht wird nichts.</translation>
    </message>
    <message>
        <source>Imports</source>
        <translation>Übernahmen</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Card</source>
        <translation>Karte</translation>
    </message>
    <message>
        <source>New Files</source>
        <translation>Neue Dateien</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Take Back this Import...</source>
        <translation>Diese Übernahme zurücknehmen...</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>taken back</source>
        <translation>zurückgenommen</translation>
    </message>
    <message>
        <source>KOLT Warning</source>
        <translation>KOLT-Warnung</translation>
    </message>
    <message>
        <source>Moving the files</source>
        <translation>Die Dateien werden verschoben</translation>
    </message>
    <message numerus="yes">
        <source>Move the %n file(s) that the import of %1 added to the trash of the library?</source>
        <translation>
            <numerusform>Soll die %n Datei, die durch die Übernahme von %1 hinzukam, in den Papierkorb der Bibliothek verschoben werden?</numerusform>
            <numerusform>Sollen die %n Dateien, die durch die Übernahme von %1 hinzukamen, in den Papierkorb der Bibliothek verschoben werden?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) are now in %1.</source>
        <translation>
            <numerusform>%n Datei liegt jetzt in %1.</numerusform>
            <numerusform>%n Dateien liegen jetzt in %1.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::Library::DialogMove</name>
    <message>
        <source>Move the Library</source>
        <translation>Bibliothek umziehen</translation>
    </message>
    <message>
        <source>Copies the library to another folder, which KOLT uses from then on. Each file is read back from the disk and compared. The old folder is kept as it is.</source>
        <translation>Kopiert die Bibliothek in einen anderen Ordner, den KOLT fortan benutzt. Jede Datei wird von der Platte zurückgelesen und verglichen. Der alte Ordner bleibt, wie er ist.</translation>
    </message>
    <message>
        <source>An empty or a new folder, also on another disk</source>
        <translation>Ein leerer oder neuer Ordner, auch auf einer anderen Platte</translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation>Auswählen...</translation>
    </message>
    <message>
        <source>Now:</source>
        <translation>Jetzt:</translation>
    </message>
    <message>
        <source>&amp;New folder:</source>
        <translation>&amp;Neuer Ordner:</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>Umziehen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>New Folder of the Library</source>
        <translation>Neuer Ordner der Bibliothek</translation>
    </message>
    <message>
        <source>Reading the library</source>
        <translation>Bibliothek wird gelesen</translation>
    </message>
    <message>
        <source>Copying %1: %2 of %3 files</source>
        <translation>%1 wird kopiert: %2 von %3 Dateien</translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) were copied and compared. The library is now in
%1
The old folder is kept as it was; delete it yourself when you no longer need it. Other computers use it until they are told the new one in their preferences.</source>
        <translation>
            <numerusform>%n Datei wurde kopiert und verglichen. Die Bibliothek liegt jetzt in
%1
Der alte Ordner bleibt, wie er war; löschen Sie ihn selbst, wenn Sie ihn nicht mehr brauchen. Andere Rechner benutzen ihn, bis ihnen in ihren Einstellungen der neue genannt wird.</numerusform>
            <numerusform>%n Dateien wurden kopiert und verglichen. Die Bibliothek liegt jetzt in
%1
Der alte Ordner bleibt, wie er war; löschen Sie ihn selbst, wenn Sie ihn nicht mehr brauchen. Andere Rechner benutzen ihn, bis ihnen in ihren Einstellungen der neue genannt wird.</numerusform>
        </translation>
    </message>
    <message>
        <source>Cancelled.</source>
        <translation>Abgebrochen.</translation>
    </message>
    <message>
        <source>The library stays where it is.</source>
        <translation>Die Bibliothek bleibt, wo sie ist.</translation>
    </message>
</context>
<context>
    <name>KOLT::Library::ImportRecords</name>
    <message>
        <source>The folder %1 cannot be created.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>KOLT::Library::ImportText</name>
    <message>
        <source>about %1 s left</source>
        <translation>noch etwa %1 s</translation>
    </message>
    <message>
        <source>about %1 min left</source>
        <translation>noch etwa %1 min</translation>
    </message>
    <message>
        <source>%1 of %2 files are safe; %3 were here before.</source>
        <translation>%1 von %2 Dateien sind sicher; %3 waren schon vorher hier.</translation>
    </message>
    <message>
        <source>%1 have another content than a file of the same name, and lie beside it in the folder &quot;copies&quot;.</source>
        <translation>%1 haben anderen Inhalt als eine Datei gleichen Namens und liegen daneben im Ordner „copies“.</translation>
    </message>
    <message>
        <source>The card holds nothing that the library does not have.</source>
        <translation>Auf der Karte ist nichts, was nicht auch in der Bibliothek ist.</translation>
    </message>
    <message>
        <source>The import was cancelled. Do not erase the card: import it again.</source>
        <translation>Die Übernahme wurde abgebrochen. Löschen Sie die Karte nicht: Übernehmen Sie sie noch einmal.</translation>
    </message>
    <message>
        <source>Do not erase the card. Import it again when the cause is removed.</source>
        <translation>Löschen Sie die Karte nicht. Übernehmen Sie sie noch einmal, wenn die Ursache behoben ist.</translation>
    </message>
    <message>
        <source>Copying %1: %2 of %3 files</source>
        <translation>%1 wird kopiert: %2 von %3 Dateien</translation>
    </message>
    <message>
        <source>, %1 MB/s</source>
        <translation>, %1 MB/s</translation>
    </message>
    <message>
        <source>, %1</source>
        <translation>, %1</translation>
    </message>
</context>
<context>
    <name>KOLT::Library::Placement</name>
    <message>
        <source>The folder %1 cannot be created.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>%1 cannot be put into its folder: %2</source>
        <translation>%1 kommt nicht in ihren Ordner: %2</translation>
    </message>
</context>
<context>
    <name>KOLT::Library::UnitFolder</name>
    <message>
        <source>The manifest in %1 cannot be read: %2</source>
        <translation>Das Verzeichnis manifest.json in %1 kann nicht gelesen werden: %2</translation>
    </message>
</context>
<context>
    <name>KOLT::LibraryAddress</name>
    <message>
        <source>%1 is neither a folder nor the address of a PostgreSQL server, such as postgresql://user@host/database</source>
        <translation>%1 ist weder ein Ordner noch die Adresse eines PostgreSQL-Servers wie postgresql://benutzer@rechner/datenbank</translation>
    </message>
    <message>
        <source>Leave the password out of the address, where others can see it: put it into the password file of PostgreSQL (~/.pgpass), or wait for being asked</source>
        <translation>Lassen Sie das Passwort aus der Adresse weg, wo andere es sehen: Schreiben Sie es in die Passwortdatei von PostgreSQL (~/.pgpass), oder warten Sie, bis danach gefragt wird</translation>
    </message>
    <message>
        <source>%1 names no database: postgresql://user@host/database</source>
        <translation>%1 nennt keine Datenbank: postgresql://benutzer@rechner/datenbank</translation>
    </message>
    <message>
        <source>the option &quot;%1&quot; of the server&apos;s address is not known; known are %2</source>
        <translation>die Option „%1“ der Serveradresse ist unbekannt; bekannt sind %2</translation>
    </message>
    <message>
        <source>a library on a server needs the folder of its archive as well</source>
        <translation>eine Bibliothek auf einem Server braucht auch den Ordner ihres Archivs</translation>
    </message>
    <message>
        <source>no library is given</source>
        <translation>es ist keine Bibliothek angegeben</translation>
    </message>
    <message>
        <source>only a library on a server has its archive elsewhere</source>
        <translation>nur eine Bibliothek auf einem Server hat ihr Archiv an einem anderen Ort</translation>
    </message>
</context>
<context>
    <name>KOLT::LibraryDatabase</name>
    <message>
        <source>it is damaged (%1). Nothing is lost: make it again from the archive, with &quot;Rebuild&quot; or kolt-cli library rebuild</source>
        <translation>sie ist beschädigt (%1). Nichts ist verloren: Lassen Sie sie aus dem Archiv neu aufbauen, mit „Neu aufbauen“ oder kolt-cli library rebuild</translation>
    </message>
    <message>
        <source>another program has been writing to it for a minute. Try again later</source>
        <translation>ein anderes Programm schreibt seit einer Minute hinein. Versuchen Sie es später wieder</translation>
    </message>
    <message>
        <source>the disk is full. Make room and try again</source>
        <translation>der Datenträger ist voll. Schaffen Sie Platz und versuchen Sie es wieder</translation>
    </message>
    <message>
        <source>it may not be written: %1</source>
        <translation>sie darf nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>the server does not answer: %1</source>
        <translation>der Server antwortet nicht: %1</translation>
    </message>
    <message>
        <source>it cannot be read or written (%1). Is the disk still there?</source>
        <translation>sie kann nicht gelesen oder geschrieben werden (%1). Ist der Datenträger noch da?</translation>
    </message>
    <message>
        <source>the server wants a password (%1). Put it into the password file of PostgreSQL (~/.pgpass)</source>
        <translation>der Server verlangt ein Passwort (%1). Schreiben Sie es in die Passwortdatei von PostgreSQL (~/.pgpass)</translation>
    </message>
    <message>
        <source>The library %1: %2</source>
        <translation>Die Bibliothek %1: %2</translation>
    </message>
    <message>
        <source>This installation cannot use a PostgreSQL server: the driver of the toolkit for it is missing (on Debian the package libqt6sql6-psql; on Windows there is none). A library in a folder needs no server</source>
        <translation>Diese Installation kann keinen PostgreSQL-Server benutzen: Der Treiber dafür fehlt (unter Debian das Paket libqt6sql6-psql; unter Windows gibt es keinen). Eine Bibliothek in einem Ordner braucht keinen Server</translation>
    </message>
    <message>
        <source>The driver of the toolkit for SQLite is missing (on Debian the package libqt6sql6-sqlite)</source>
        <translation>Der Treiber für SQLite fehlt (unter Debian das Paket libqt6sql6-sqlite)</translation>
    </message>
    <message>
        <source>There is no folder %1. Is the disk of the library plugged in?</source>
        <translation>Es gibt keinen Ordner %1. Ist der Datenträger der Bibliothek angeschlossen?</translation>
    </message>
    <message>
        <source>There is no library %1. It is made by the first import, or from an archive with kolt-cli library rebuild</source>
        <translation>Es gibt keine Bibliothek %1. Der erste Import legt sie an, oder kolt-cli library rebuild aus einem Archiv</translation>
    </message>
    <message>
        <source>The library %1 was written by a newer version of KOLT (its database has version %2, this program knows %3). Use that version, or give this one a library of its own</source>
        <translation>Die Bibliothek %1 wurde von einer neueren Version von KOLT geschrieben (ihre Datenbank hat Version %2, dieses Programm kennt %3). Benutzen Sie jene Version, oder geben Sie dieser eine eigene Bibliothek</translation>
    </message>
    <message>
        <source>There is no library in %1 yet. It is made by the first import, or from an archive with kolt-cli library rebuild</source>
        <translation>In %1 gibt es noch keine Bibliothek. Der erste Import legt sie an, oder kolt-cli library rebuild aus einem Archiv</translation>
    </message>
    <message>
        <source>The library %1 was written by an older version of KOLT. Any import brings it up to date, and so does kolt-cli library rebuild</source>
        <translation>Die Bibliothek %1 wurde von einer älteren Version von KOLT geschrieben. Jeder Import bringt sie auf den neuen Stand, ebenso kolt-cli library rebuild</translation>
    </message>
    <message>
        <source>%1 cannot be moved aside. Is the folder read-only?</source>
        <translation>%1 lässt sich nicht beiseitelegen. Ist der Ordner schreibgeschützt?</translation>
    </message>
    <message>
        <source>One statement only: &quot;;&quot; may stand at its end alone, not in a text either</source>
        <translation>Nur eine Anweisung: „;“ darf nur an ihrem Ende stehen, auch nicht in einem Text</translation>
    </message>
    <message>
        <source>Only statements that read are possible: SELECT, WITH, VALUES, EXPLAIN</source>
        <translation>Nur Anweisungen, die lesen, sind möglich: SELECT, WITH, VALUES, EXPLAIN</translation>
    </message>
    <message>
        <source>its user lacks the right to do this (%1). Ask whoever looks after the server</source>
        <translation>ihrem Benutzer fehlt das Recht dazu (%1). Fragen Sie, wer den Server betreut</translation>
    </message>
    <message>
        <source>the server refuses the connection: %1</source>
        <translation>der Server lehnt die Verbindung ab: %1</translation>
    </message>
    <message>
        <source>The library %1 is that of another folder than %2. Is the shared folder connected there? If this folder is to take its place, make the database anew with kolt-cli library rebuild</source>
        <translation>Die Bibliothek %1 gehört zu einem anderen Ordner als %2. Ist der gemeinsame Ordner dort verbunden? Soll dieser Ordner an seine Stelle treten, legen Sie die Datenbank mit kolt-cli library rebuild neu an</translation>
    </message>
</context>
<context>
    <name>KOLT::LibraryFigures</name>
    <message>
        <source>there is no folder %1</source>
        <translation>es gibt keinen Ordner %1</translation>
    </message>
    <message>
        <source>none of the files in %1 can be read</source>
        <translation>keine der Dateien in %1 kann gelesen werden</translation>
    </message>
</context>
<context>
    <name>KOLT::LibraryFilterBar</name>
    <message>
        <source> min</source>
        <translation> min</translation>
    </message>
    <message>
        <source>Serial number or date</source>
        <translation>Seriennummer oder Datum</translation>
    </message>
    <message>
        <source>Search the library</source>
        <translation>Die Bibliothek durchsuchen</translation>
    </message>
    <message>
        <source>Part of a serial number of unit or engine, or a day, month or year: 14.6.2025, 6.2025, 2025</source>
        <translation>Teil einer Seriennummer von Gerät oder Motor, oder Tag, Monat oder Jahr: 14.6.2025, 6.2025, 2025</translation>
    </message>
    <message>
        <source>Filter by exceedance, fault, duration, days and notes</source>
        <translation>Nach Überschreitung, Fehler, Dauer, Tagen und Notizen filtern</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Warning or limit</source>
        <translation>Warnung oder Grenzwert</translation>
    </message>
    <message>
        <source>Limit</source>
        <translation>Grenzwert</translation>
    </message>
    <message>
        <source>Any quantity</source>
        <translation>Jede Größe</translation>
    </message>
    <message>
        <source>Part of its name</source>
        <translation>Teil des Namens</translation>
    </message>
    <message>
        <source>any</source>
        <translation>beliebig</translation>
    </message>
    <message>
        <source>With a note</source>
        <translation>Mit einer Notiz</translation>
    </message>
    <message>
        <source>Exceeded</source>
        <translation>Überschritten</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Fault</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Flight</source>
        <translation>Flug</translation>
    </message>
    <message>
        <source>Days</source>
        <translation>Tage</translation>
    </message>
    <message>
        <source>Shortest time from take-off to landing</source>
        <translation>Kürzeste Zeit vom Start bis zur Landung</translation>
    </message>
    <message>
        <source>Longest time from take-off to landing</source>
        <translation>Längste Zeit vom Start bis zur Landung</translation>
    </message>
    <message>
        <source>First day</source>
        <translation>Erster Tag</translation>
    </message>
    <message>
        <source>Last day</source>
        <translation>Letzter Tag</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>Alles zeigen</translation>
    </message>
    <message>
        <source>Clear the filter and the search</source>
        <translation>Filter und Suche leeren</translation>
    </message>
</context>
<context>
    <name>KOLT::LibraryModel</name>
    <message numerus="yes">
        <source>%n flight(s)</source>
        <translation>
            <numerusform>%n Flug</numerusform>
            <numerusform>%n Flüge</numerusform>
        </translation>
    </message>
    <message>
        <source>%1:%2 h</source>
        <translation>%1:%2 h</translation>
    </message>
    <message>
        <source>Unit %1</source>
        <translation>Gerät %1</translation>
    </message>
    <message>
        <source>Unit %1 %2
Engines: %3
%4 to %5</source>
        <translation>Gerät %1 %2
Motoren: %3
%4 bis %5</translation>
    </message>
    <message>
        <source>Without a date</source>
        <translation>Ohne Datum</translation>
    </message>
    <message>
        <source>Cycle</source>
        <translation>Zyklus</translation>
    </message>
    <message>
        <source>%1 (not evaluated yet)</source>
        <translation>%1 (noch nicht ausgewertet)</translation>
    </message>
    <message numerus="yes">
        <source>Engine %1, %2
%n file(s)</source>
        <translation>
            <numerusform>Motor %1, %2
%n Datei</numerusform>
            <numerusform>Motor %1, %2
%n Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>Flight %1 %2 (%3)</source>
        <translation>Flug %1 %2 (%3)</translation>
    </message>
</context>
<context>
    <name>KOLT::LibraryOpener</name>
    <message>
        <source>Waiting for the server of the library, %1</source>
        <translation>Warten auf den Server der Bibliothek, %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>The server of the library %1 has not answered yet</source>
        <translation>Der Server der Bibliothek %1 hat noch nicht geantwortet</translation>
    </message>
    <message>
        <source>This password was not accepted. Password of %1:</source>
        <translation>Dieses Kennwort wurde nicht angenommen. Kennwort von %1:</translation>
    </message>
    <message>
        <source>Password of %1:</source>
        <translation>Kennwort von %1:</translation>
    </message>
</context>
<context>
    <name>KOLT::LibraryPage</name>
    <message>
        <source>Choose or create a library...</source>
        <translation>Bibliothek wählen oder anlegen...</translation>
    </message>
    <message>
        <source>A folder that keeps the recordings of all cards; an empty one becomes a new library</source>
        <translation>Ein Ordner, der die Aufzeichnungen aller Karten aufbewahrt; ein leerer wird eine neue Bibliothek</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>Work out the figures of recordings that are new, or were evaluated with another profile</source>
        <translation>Die Zahlen von Aufzeichnungen ermitteln, die neu sind oder mit einem anderen Profil ausgewertet wurden</translation>
    </message>
    <message>
        <source>Engine...</source>
        <translation>Motor...</translation>
    </message>
    <message>
        <source>What an engine has lived through, and what is due</source>
        <translation>Was ein Motor erlebt hat, und was fällig ist</translation>
    </message>
    <message numerus="yes">
        <source>Evaluate %n recording(s)</source>
        <translation>
            <numerusform>%n Aufzeichnung auswerten</numerusform>
            <numerusform>%n Aufzeichnungen auswerten</numerusform>
        </translation>
    </message>
    <message>
        <source>The library has no recordings yet. Import a card.</source>
        <translation>Die Bibliothek hat noch keine Aufzeichnungen. Übernehmen Sie eine Karte.</translation>
    </message>
    <message>
        <source>Nothing in the library is like this.</source>
        <translation>Nichts in der Bibliothek ist so.</translation>
    </message>
    <message>
        <source>Name of the aircraft...</source>
        <translation>Name des Flugzeugs...</translation>
    </message>
    <message>
        <source>Installations...</source>
        <translation>Einbauten...</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Erneut versuchen</translation>
    </message>
    <message>
        <source>No library yet. It keeps the recordings of all cards in one place, and knows what each engine has lived through. The first import of a card makes one.</source>
        <translation>Noch keine Bibliothek. Sie bewahrt die Aufzeichnungen aller Karten an einem Ort auf und weiß, was jeder Motor erlebt hat. Die erste Übernahme einer Karte legt sie an.</translation>
    </message>
</context>
<context>
    <name>KOLT::LibrarySession</name>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>Cannot be read, and is left out: %1</source>
        <translation>Ist nicht lesbar und wird ausgelassen: %1</translation>
    </message>
    <message>
        <source>Working out the figures of the library</source>
        <translation>Die Zahlen der Bibliothek werden ermittelt</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Some recordings could not be evaluated:
%1</source>
        <translation>Einige Aufzeichnungen konnten nicht ausgewertet werden:
%1</translation>
    </message>
    <message numerus="yes">
        <source>%n recording(s) evaluated</source>
        <translation>
            <numerusform>%n Aufzeichnung ausgewertet</numerusform>
            <numerusform>%n Aufzeichnungen ausgewertet</numerusform>
        </translation>
    </message>
    <message>
        <source>The folder
%1
of the library cannot be opened. Is its disk connected?</source>
        <translation>Der Ordner
%1
der Bibliothek lässt sich nicht öffnen. Ist seine Platte angeschlossen?</translation>
    </message>
    <message>
        <source>The library has no recordings yet. Import a card.</source>
        <translation>Die Bibliothek hat noch keine Aufzeichnungen. Übernehmen Sie eine Karte.</translation>
    </message>
    <message>
        <source>The library has no recording of this engine.</source>
        <translation>Die Bibliothek hat keine Aufzeichnung dieses Motors.</translation>
    </message>
    <message>
        <source>Name of the Aircraft</source>
        <translation>Name des Flugzeugs</translation>
    </message>
    <message>
        <source>Name of the aircraft with unit %1:</source>
        <translation>Name des Flugzeugs mit Gerät %1:</translation>
    </message>
    <message>
        <source>This had been changed meanwhile by %1. Your text is kept, as it is the later one.</source>
        <translation>Das wurde inzwischen geändert von %1. Ihr Text bleibt, da er der spätere ist.</translation>
    </message>
    <message>
        <source>The library is being moved.</source>
        <translation>Die Bibliothek zieht um.</translation>
    </message>
    <message>
        <source>Opening the library %1</source>
        <translation>Die Bibliothek %1 wird geöffnet</translation>
    </message>
</context>
<context>
    <name>KOLT::LibraryUpdate</name>
    <message>
        <source>its figures were not understood</source>
        <translation>seine Werte wurden nicht verstanden</translation>
    </message>
    <message>
        <source>%1 cannot work out figures: it ended with status %2</source>
        <translation>%1 kann keine Werte ermitteln: Es endete mit Status %2</translation>
    </message>
    <message>
        <source>the process that worked out its figures ended unexpectedly</source>
        <translation>der Prozess, der seine Werte ermittelte, endete unerwartet</translation>
    </message>
    <message>
        <source>%1 could not be started: %2</source>
        <translation>%1 konnte nicht gestartet werden: %2</translation>
    </message>
    <message>
        <source>the process answered for another recording, &quot;%1&quot;</source>
        <translation>der Prozess antwortete für eine andere Aufzeichnung, „%1“</translation>
    </message>
</context>
<context>
    <name>KOLT::LimitEditor</name>
    <message>
        <source>Every</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Last done on</source>
        <translation>Zuletzt erledigt am</translation>
    </message>
    <message>
        <source>Maintenance Limit</source>
        <translation>Wartungsgrenze</translation>
    </message>
    <message>
        <source>Oil change</source>
        <translation>Ölwechsel</translation>
    </message>
    <message>
        <source> h</source>
        <translation> h</translation>
    </message>
    <message>
        <source> months</source>
        <translation> Monate</translation>
    </message>
    <message>
        <source>Hours of the engine, as the window Engine counts them</source>
        <translation>Stunden des Motors, wie das Fenster Motor sie zählt</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>Last done at</source>
        <translation>Zuletzt erledigt bei</translation>
    </message>
    <message>
        <source>Hours of the engine from one time to the next</source>
        <translation>Stunden des Motors von einem Mal zum nächsten</translation>
    </message>
    <message>
        <source>Months from one time to the next</source>
        <translation>Monate von einem Mal zum nächsten</translation>
    </message>
    <message>
        <source>Day on which it was last done</source>
        <translation>Tag, an dem es zuletzt erledigt wurde</translation>
    </message>
</context>
<context>
    <name>KOLT::Logbook</name>
    <message>
        <source>%1 on %2</source>
        <translation>%1 am %2</translation>
    </message>
    <message>
        <source>somebody</source>
        <translation>jemand</translation>
    </message>
    <message>
        <source>The folder &quot;%1&quot; is not there. Nothing was saved.
Is its disk connected?</source>
        <translation>Der Ordner „%1“ ist nicht da. Es wurde nichts gesichert.
Ist seine Platte angeschlossen?</translation>
    </message>
    <message>
        <source>The folder &quot;%1&quot; cannot be created. Nothing was saved.</source>
        <translation>Der Ordner „%1“ lässt sich nicht anlegen. Es wurde nichts gesichert.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written: %2
Nothing was saved.</source>
        <translation>„%1“ lässt sich nicht schreiben: %2
Es wurde nichts gesichert.</translation>
    </message>
</context>
<context>
    <name>KOLT::MainActions</name>
    <message>
        <source>&amp;New Project</source>
        <translation>&amp;Neues Projekt</translation>
    </message>
    <message>
        <source>Create new Project</source>
        <translation>Neues Projekt anlegen</translation>
    </message>
    <message>
        <source>&amp;Open Project</source>
        <translation>Projekt ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>Open Project File</source>
        <translation>Projektdatei öffnen</translation>
    </message>
    <message>
        <source>&amp;Open Data Folder</source>
        <translation>Datenordner &amp;öffnen</translation>
    </message>
    <message>
        <source>Open Data Folder</source>
        <translation>Datenordner öffnen</translation>
    </message>
    <message>
        <source>&amp;Save Project</source>
        <translation>Projekt &amp;speichern</translation>
    </message>
    <message>
        <source>Save Project</source>
        <translation>Projekt speichern</translation>
    </message>
    <message>
        <source>Save Project File</source>
        <translation>Projektdatei speichern</translation>
    </message>
    <message>
        <source>&amp;Save Project as</source>
        <translation>Projekt speichern &amp;unter</translation>
    </message>
    <message>
        <source>Save Project as</source>
        <translation>Projekt speichern unter</translation>
    </message>
    <message>
        <source>Save Project File as</source>
        <translation>Projektdatei speichern unter</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Quit Application</source>
        <translation>Programm beenden</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Show License Information</source>
        <translation>Lizenzinformationen anzeigen</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>Profil</translation>
    </message>
    <message>
        <source>Show Profile Information</source>
        <translation>Profilinformationen anzeigen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Help Window</source>
        <translation>Hilfefenster</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Open Preferences Dialog</source>
        <translation>Einstellungen öffnen</translation>
    </message>
    <message>
        <source>Export Google KML File</source>
        <translation>Google-KML-Datei exportieren</translation>
    </message>
    <message>
        <source>Export Google Earth KML File</source>
        <translation>KML-Datei für Google Earth exportieren</translation>
    </message>
    <message>
        <source>Export CSV File</source>
        <translation>CSV-Datei exportieren</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Extras</source>
        <translation>&amp;Extras</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Open this folder again</source>
        <translation>Diesen Ordner erneut öffnen</translation>
    </message>
    <message>
        <source>Day Sheet</source>
        <translation>Tagesblatt</translation>
    </message>
    <message>
        <source>Show the flights of the day as a sheet</source>
        <translation>Die Flüge des Tages als Blatt zeigen</translation>
    </message>
    <message>
        <source>Export GPX File</source>
        <translation>GPX-Datei exportieren</translation>
    </message>
    <message>
        <source>Export the flights as tracks to a GPX file</source>
        <translation>Die Flüge als Spuren in eine GPX-Datei exportieren</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Show what is doubtful in the recording</source>
        <translation>Zeigt, was an der Aufzeichnung zweifelhaft ist</translation>
    </message>
    <message>
        <source>Engine Report...</source>
        <translation>Motorbericht...</translation>
    </message>
    <message>
        <source>Make one document of the card for the shop and the aircraft&apos;s papers</source>
        <translation>Aus der Karte ein Dokument für die Werkstatt und die Betriebsunterlagen machen</translation>
    </message>
    <message>
        <source>Import Card...</source>
        <translation>Karte übernehmen...</translation>
    </message>
    <message>
        <source>Copy the recordings of a card into the library, with proof</source>
        <translation>Die Aufzeichnungen einer Karte mit Nachweis in die Bibliothek kopieren</translation>
    </message>
    <message>
        <source>Engine...</source>
        <translation>Motor...</translation>
    </message>
    <message>
        <source>Show what an engine has lived through, and what is due</source>
        <translation>Zeigt, was ein Motor erlebt hat, und was fällig ist</translation>
    </message>
    <message>
        <source>Notes...</source>
        <translation>Notizen...</translation>
    </message>
    <message>
        <source>Show and write notes on the loaded recording</source>
        <translation>Notizen zur geladenen Aufzeichnung zeigen und schreiben</translation>
    </message>
</context>
<context>
    <name>KOLT::MapMarks</name>
    <message>
        <source>Take-off of flight %1</source>
        <translation>Start von Flug %1</translation>
    </message>
    <message>
        <source>Landing of flight %1</source>
        <translation>Landung von Flug %1</translation>
    </message>
</context>
<context>
    <name>KOLT::MarkerPanel</name>
    <message>
        <source>Values between the markers</source>
        <translation>Werte zwischen den Markern</translation>
    </message>
    <message>
        <source>Copy table</source>
        <translation>Tabelle kopieren</translation>
    </message>
</context>
<context>
    <name>KOLT::MarkerTable</name>
    <message>
        <source>Markers at %1 and %2, dt = %3 s</source>
        <translation>Marker bei %1 und %2, dt = %3 s</translation>
    </message>
    <message>
        <source>Trace</source>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>Differenz</translation>
    </message>
    <message>
        <source>Min</source>
        <translation>Min</translation>
    </message>
    <message>
        <source>Max</source>
        <translation>Max</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittel</translation>
    </message>
</context>
<context>
    <name>KOLT::Messages</name>
    <message>
        <source>KOLT Warning</source>
        <translation>KOLT-Warnung</translation>
    </message>
    <message>
        <source>KOLT Info</source>
        <translation>KOLT-Hinweis</translation>
    </message>
    <message>
        <source>The settings could not be saved to
%1
They are kept until the program ends. Please check that the folder can be written and is not full, and that no other program has the file open.</source>
        <translation>Die Einstellungen konnten nicht gespeichert werden:
%1
Sie gelten bis zum Ende des Programms. Bitte prüfen Sie, ob der Ordner beschreibbar und nicht voll ist, und ob kein anderes Programm die Datei geöffnet hat.</translation>
    </message>
    <message>
        <source>The file could not be written:
%1
%2
Please check that the folder can be written and is not full, or save it elsewhere.</source>
        <translation>Die Datei konnte nicht geschrieben werden:
%1
%2
Bitte prüfen Sie, ob der Ordner beschreibbar und nicht voll ist, oder sichern Sie an anderer Stelle.</translation>
    </message>
    <message>
        <source>The settings could not be read, and KOLT continues without them. Please check language, units and the variant of the profile. The file is kept as
%1</source>
        <translation>Die Einstellungen konnten nicht gelesen werden; KOLT arbeitet ohne sie weiter. Bitte prüfen Sie Sprache, Einheiten und die Variante des Profils. Die Datei bleibt erhalten als
%1</translation>
    </message>
</context>
<context>
    <name>KOLT::NotesSession</name>
    <message>
        <source>No flight is around the moment that is shown. Go to a moment of the flight first.</source>
        <translation>Der gezeigte Moment liegt in keinem Flug. Gehen Sie erst zu einem Moment des Flugs.</translation>
    </message>
    <message>
        <source>The file of this moment cannot be read, so that the note would not be found again. Nothing was saved.
Is the card inserted?</source>
        <translation>Die Datei dieses Moments ist nicht lesbar, die Notiz würde also nicht wiedergefunden. Es wurde nichts gesichert.
Ist die Karte eingelegt?</translation>
    </message>
    <message>
        <source>This note had been changed meanwhile by %1. Your text is kept, as it is the later one.</source>
        <translation>Diese Notiz wurde inzwischen geändert von %1. Ihr Text bleibt, da er der spätere ist.</translation>
    </message>
    <message>
        <source>Nothing was saved.</source>
        <translation>Es wurde nichts gesichert.</translation>
    </message>
</context>
<context>
    <name>KOLT::NotesWindow</name>
    <message>
        <source>engine</source>
        <translation>Motor</translation>
    </message>
    <message>
        <source>cycle</source>
        <translation>Zyklus</translation>
    </message>
    <message>
        <source>flight</source>
        <translation>Flug</translation>
    </message>
    <message>
        <source>moment</source>
        <translation>Moment</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Notizen</translation>
    </message>
    <message>
        <source>Notes on the loaded recording</source>
        <translation>Notizen zur geladenen Aufzeichnung</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Zu</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Notiz</translation>
    </message>
    <message>
        <source>By</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>Moment...</source>
        <translation>Moment...</translation>
    </message>
    <message>
        <source>A note at the moment that is shown</source>
        <translation>Eine Notiz zum gezeigten Moment</translation>
    </message>
    <message>
        <source>Flight...</source>
        <translation>Flug...</translation>
    </message>
    <message>
        <source>A note on the flight that is shown</source>
        <translation>Eine Notiz zum gezeigten Flug</translation>
    </message>
    <message>
        <source>Cycle...</source>
        <translation>Zyklus...</translation>
    </message>
    <message>
        <source>A note on the whole engine cycle</source>
        <translation>Eine Notiz zum ganzen Motorzyklus</translation>
    </message>
    <message>
        <source>Change...</source>
        <translation>Ändern...</translation>
    </message>
    <message>
        <source>Change the chosen note</source>
        <translation>Die gewählte Notiz ändern</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove the chosen note</source>
        <translation>Die gewählte Notiz entfernen</translation>
    </message>
    <message>
        <source>Open a cycle or a flight to write notes on it.</source>
        <translation>Öffnen Sie einen Zyklus oder Flug, um Notizen dazu zu schreiben.</translation>
    </message>
    <message>
        <source>No notes on this recording yet.</source>
        <translation>Noch keine Notizen zu dieser Aufzeichnung.</translation>
    </message>
    <message>
        <source>Note on this %1</source>
        <translation>Notiz zu diesem %1</translation>
    </message>
    <message>
        <source>KOLT</source>
        <translation>KOLT</translation>
    </message>
    <message>
        <source>Remove this note?

%1</source>
        <translation>Diese Notiz entfernen?

%1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>KOLT::NoticeBar</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>KOLT::OpenCycleNotice</name>
    <message numerus="yes">
        <source>An import has added %n file(s) to the cycle that is open.</source>
        <translation>
            <numerusform>Eine Übernahme hat dem geöffneten Zyklus %n Datei hinzugefügt.</numerusform>
            <numerusform>Eine Übernahme hat dem geöffneten Zyklus %n Dateien hinzugefügt.</numerusform>
        </translation>
    </message>
    <message>
        <source>An import was taken back: the cycle that is open has fewer files now.</source>
        <translation>Eine Übernahme wurde zurückgenommen: Der geöffnete Zyklus hat jetzt weniger Dateien.</translation>
    </message>
    <message>
        <source>Show it as it is now</source>
        <translation>Im neuen Stand zeigen</translation>
    </message>
    <message>
        <source>The cycle that is open is no longer in the library. What was loaded of it stays until you open something else.</source>
        <translation>Der geöffnete Zyklus ist nicht mehr in der Bibliothek. Was davon geladen wurde, bleibt, bis Sie etwas anderes öffnen.</translation>
    </message>
</context>
<context>
    <name>KOLT::OverviewPage</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Click a cycle or a flight to open it. Metric units.</source>
        <translation>Klicken Sie auf einen Zyklus oder Flug, um ihn zu öffnen. Metrische Einheiten.</translation>
    </message>
    <message>
        <source>Checking the recordings: %1 of %2 cycles</source>
        <translation>Aufzeichnungen werden geprüft: %1 von %2 Zyklen</translation>
    </message>
    <message>
        <source>Reading: %1 of %2 cycles</source>
        <translation>Wird gelesen: %1 von %2 Zyklen</translation>
    </message>
    <message>
        <source>Cancelled: %1 of %2 cycles were read</source>
        <translation>Abgebrochen: %1 von %2 Zyklen wurden gelesen</translation>
    </message>
    <message>
        <source>Overview</source>
        <translation>Übersicht</translation>
    </message>
    <message>
        <source>Import Card...</source>
        <translation>Karte übernehmen...</translation>
    </message>
    <message>
        <source>Copy the recordings of a card into the library, with proof</source>
        <translation>Die Aufzeichnungen einer Karte mit Nachweis in die Bibliothek kopieren</translation>
    </message>
</context>
<context>
    <name>KOLT::OverviewSession</name>
    <message>
        <source>The folder
%1
was not found. Insert the card, or open another folder.</source>
        <translation>Der Ordner
%1
wurde nicht gefunden. Legen Sie die Karte ein, oder öffnen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>The sample card cannot be opened: it is missing in this installation, or cannot be copied to the folder of the program&apos;s data.</source>
        <translation>Die Beispielkarte kann nicht geöffnet werden: Sie fehlt in dieser Installation, oder sie lässt sich nicht in den Datenordner des Programms kopieren.</translation>
    </message>
</context>
<context>
    <name>KOLT::OverviewTable</name>
    <message>
        <source>Incomplete: these files could not be read: %1</source>
        <translation>Unvollständig: Diese Dateien konnten nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Flight %1</source>
        <translation>Flug %1</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Max. alt. [m]</source>
        <translation>Max. Höhe [m]</translation>
    </message>
    <message>
        <source>Fuel [l]</source>
        <translation>Kraftstoff [l]</translation>
    </message>
    <message>
        <source>Exceeded</source>
        <translation>Überschreitungen</translation>
    </message>
    <message>
        <source>Unknown Date</source>
        <translation>Datum unbekannt</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Gesamt</translation>
    </message>
    <message numerus="yes">
        <source>%1: came on %n time(s)</source>
        <translation>
            <numerusform>%1: ging %n-mal an</numerusform>
            <numerusform>%1: ging %n-mal an</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: on from the start, not counted</source>
        <translation>%1: von Anfang an ein, nicht gezählt</translation>
    </message>
    <message>
        <source>Limit</source>
        <translation>Grenzwert</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>%1: %2 %3 at %4 since the unit was switched on</source>
        <translation>%1: %2 %3 bei %4 seit dem Einschalten des Geräts</translation>
    </message>
    <message>
        <source>sound</source>
        <translation>einwandfrei</translation>
    </message>
    <message>
        <source>note</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>doubtful</source>
        <translation>zweifelhaft</translation>
    </message>
    <message>
        <source>wrong</source>
        <translation>falsch</translation>
    </message>
    <message>
        <source>Outside flights</source>
        <translation>Außerhalb</translation>
    </message>
    <message>
        <source>On the ground, and take-offs that were aborted or have no landing</source>
        <translation>Am Boden, und Starts, die abgebrochen wurden oder keine Landung haben</translation>
    </message>
    <message>
        <source>Cycle</source>
        <translation>Zyklus</translation>
    </message>
    <message>
        <source>Engine run</source>
        <translation>Motor läuft</translation>
    </message>
    <message>
        <source>Flights</source>
        <translation>Flüge</translation>
    </message>
    <message>
        <source>In the air</source>
        <translation>In der Luft</translation>
    </message>
    <message>
        <source>In flights [l]</source>
        <translation>In Flügen [l]</translation>
    </message>
    <message>
        <source>Lamps</source>
        <translation>Lampen</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufzeichnung</translation>
    </message>
    <message>
        <source>Worst</source>
        <translation>Am schlimmsten</translation>
    </message>
    <message>
        <source>The cycles of the open folder, newest day first</source>
        <translation>Die Zyklen des geöffneten Ordners, der jüngste Tag zuerst</translation>
    </message>
    <message>
        <source>Start of the engine cycle, take-off of a flight</source>
        <translation>Beginn des Motorzyklus, Start eines Fluges</translation>
    </message>
    <message>
        <source>From the start of the cycle&apos;s first file to the stop of its last</source>
        <translation>Vom Beginn der ersten Datei des Zyklus bis zum Ende der letzten</translation>
    </message>
    <message>
        <source>Number of flights; a take-off without a landing is none</source>
        <translation>Zahl der Flüge; ein Start ohne Landung zählt nicht</translation>
    </message>
    <message>
        <source>From take-off to landing</source>
        <translation>Vom Start bis zur Landung</translation>
    </message>
    <message>
        <source>Highest altitude in a flight</source>
        <translation>Größte Höhe in einem Flug</translation>
    </message>
    <message>
        <source>Fuel of the whole engine run: in flights and outside of them</source>
        <translation>Kraftstoff des ganzen Motorlaufs: in den Flügen und außerhalb</translation>
    </message>
    <message>
        <source>Fuel in flights, from 30 s before take-off to 30 s after landing</source>
        <translation>Kraftstoff in den Flügen, von 30 s vor dem Start bis 30 s nach der Landung</translation>
    </message>
    <message>
        <source>How often a warning lamp came on</source>
        <translation>Wie oft eine Warnlampe anging</translation>
    </message>
    <message>
        <source>How far the recording can be believed</source>
        <translation>Wie weit der Aufzeichnung zu trauen ist</translation>
    </message>
    <message>
        <source>The worst exceedance with the value farthest from normal: limits before warnings, then by how far the threshold was exceeded</source>
        <translation>Die schlimmste Überschreitung mit dem Wert, der am weitesten vom Normalen weg war: Grenzwerte vor Warnungen, dann danach, wie weit die Schwelle überschritten wurde</translation>
    </message>
    <message>
        <source>Episodes in which a warning or limit was exceeded, and how often it was crossed in them, warning lamps included</source>
        <translation>Episoden, in denen eine Warnung oder ein Grenzwert überschritten wurde, und wie oft das in ihnen geschah, mit Warnlampen</translation>
    </message>
</context>
<context>
    <name>KOLT::ParameterListModel</name>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>Byte</source>
        <translation>Byte</translation>
    </message>
    <message>
        <source>Bits</source>
        <translation>Bits</translation>
    </message>
    <message>
        <source>Factor</source>
        <translation>Faktor</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>Offset</translation>
    </message>
    <message>
        <source>Enumeration</source>
        <translation>Aufzählung</translation>
    </message>
    <message>
        <source>Limits</source>
        <translation>Grenzwerte</translation>
    </message>
    <message>
        <source>Role</source>
        <translation>Rolle</translation>
    </message>
</context>
<context>
    <name>KOLT::ProfileChanges</name>
    <message>
        <source>%1 (%2): %3</source>
        <translation>%1 (%2): %3</translation>
    </message>
    <message>
        <source>Parameters added</source>
        <translation>Neue Parameter</translation>
    </message>
    <message>
        <source>Parameters removed</source>
        <translation>Entfernte Parameter</translation>
    </message>
    <message>
        <source>Parameters changed</source>
        <translation>Geänderte Parameter</translation>
    </message>
    <message>
        <source>Thresholds added</source>
        <translation>Neue Schwellen</translation>
    </message>
    <message>
        <source>Thresholds removed</source>
        <translation>Entfernte Schwellen</translation>
    </message>
    <message>
        <source>Thresholds changed</source>
        <translation>Geänderte Schwellen</translation>
    </message>
    <message>
        <source>Variants added</source>
        <translation>Neue Varianten</translation>
    </message>
    <message>
        <source>Variants removed</source>
        <translation>Entfernte Varianten</translation>
    </message>
    <message>
        <source>Variants changed</source>
        <translation>Geänderte Varianten</translation>
    </message>
    <message>
        <source>Enumerations added</source>
        <translation>Neue Aufzählungen</translation>
    </message>
    <message>
        <source>Enumerations removed</source>
        <translation>Entfernte Aufzählungen</translation>
    </message>
    <message>
        <source>Enumerations changed</source>
        <translation>Geänderte Aufzählungen</translation>
    </message>
    <message>
        <source>Units added</source>
        <translation>Neue Einheiten</translation>
    </message>
    <message>
        <source>Units removed</source>
        <translation>Entfernte Einheiten</translation>
    </message>
    <message>
        <source>Units changed</source>
        <translation>Geänderte Einheiten</translation>
    </message>
    <message>
        <source>Fault matrices added</source>
        <translation>Neue Fehlermatrizen</translation>
    </message>
    <message>
        <source>Fault matrices removed</source>
        <translation>Entfernte Fehlermatrizen</translation>
    </message>
    <message>
        <source>Fault matrices changed</source>
        <translation>Geänderte Fehlermatrizen</translation>
    </message>
</context>
<context>
    <name>KOLT::ProfileCheck</name>
    <message>
        <source>%1 has the unknown data type &quot;%2&quot;.</source>
        <translation>%1 hat den unbekannten Datentyp „%2“.</translation>
    </message>
    <message>
        <source>%1 has the data type %2, which is not implemented.</source>
        <translation>%1 hat den Datentyp %2, der nicht unterstützt wird.</translation>
    </message>
    <message>
        <source>%1 takes the bytes %2 to %3, but a message has the bytes 0 to 7.</source>
        <translation>%1 belegt die Bytes %2 bis %3, aber eine Nachricht hat die Bytes 0 bis 7.</translation>
    </message>
    <message>
        <source>%1 takes the bits %2 to %3, but %4 has the bits 0 to %5.</source>
        <translation>%1 belegt die Bits %2 bis %3, aber %4 hat die Bits 0 bis %5.</translation>
    </message>
    <message>
        <source>There is no variant &quot;%1&quot;.</source>
        <translation>Es gibt keine Variante „%1“.</translation>
    </message>
    <message>
        <source>%1 cannot be &quot;%2&quot;.</source>
        <translation>%1 kann nicht „%2“ sein.</translation>
    </message>
    <message>
        <source>The state &quot;%1&quot; is none of OK, WARNING and LIMIT.</source>
        <translation>Der Zustand „%1“ ist weder OK noch WARNING noch LIMIT.</translation>
    </message>
    <message>
        <source>%1 has the unknown error type &quot;%2&quot;.</source>
        <translation>%1 hat die unbekannte Fehlerart „%2“.</translation>
    </message>
    <message>
        <source>%1 uses the %2 &quot;%3&quot;, which is not defined.</source>
        <translation>%1 verwendet „%3“ (%2), das ist nicht definiert.</translation>
    </message>
    <message>
        <source>No parameter uses the %1 &quot;%2&quot;.</source>
        <translation>Kein Parameter verwendet „%2“ (%1).</translation>
    </message>
    <message>
        <source>enumeration</source>
        <translation>Aufzählung</translation>
    </message>
    <message>
        <source>threshold list</source>
        <translation>Grenzwertliste</translation>
    </message>
    <message>
        <source>No parameter belongs to the fault matrix &quot;%1&quot;.</source>
        <translation>Kein Parameter gehört zur Fehlermatrix „%1“.</translation>
    </message>
    <message>
        <source>%1 has no conversion from &quot;%2&quot; to &quot;%3&quot;.</source>
        <translation>%1 hat keine Umrechnung von „%2“ in „%3“.</translation>
    </message>
    <message>
        <source>No parameter uses the conversion from &quot;%1&quot; to &quot;%2&quot;.</source>
        <translation>Kein Parameter verwendet die Umrechnung von „%1“ in „%2“.</translation>
    </message>
    <message>
        <source>The threshold list &quot;%1&quot; has the step %2 twice.</source>
        <translation>Die Grenzwertliste „%1“ hat die Stufe %2 doppelt.</translation>
    </message>
    <message>
        <source>In the threshold list &quot;%1&quot; the step %2 follows %3: steps have to ascend.</source>
        <translation>In der Grenzwertliste „%1“ folgt die Stufe %2 auf %3: Stufen müssen aufsteigen.</translation>
    </message>
    <message>
        <source>%1 is defined in line %2 already.</source>
        <translation>%1 ist schon in Zeile %2 definiert.</translation>
    </message>
    <message>
        <source>%1 overlaps with %2 in line %3.</source>
        <translation>%1 überschneidet sich mit %2 in Zeile %3.</translation>
    </message>
    <message>
        <source>%1 has the role %2 like %3 in line %4, which is used.</source>
        <translation>%1 hat die Rolle %2 wie %3 in Zeile %4, das verwendet wird.</translation>
    </message>
    <message>
        <source>No parameter has the role %1.</source>
        <translation>Kein Parameter hat die Rolle %1.</translation>
    </message>
    <message>
        <source>In the variant %1 no parameter has the role %2.</source>
        <translation>In der Variante %1 hat kein Parameter die Rolle %2.</translation>
    </message>
    <message>
        <source>%1 has the unit &quot;%2&quot;, but others of the quantity &quot;%3&quot; have &quot;%4&quot;.</source>
        <translation>%1 hat die Einheit „%2“, aber andere der Größe „%3“ haben „%4“.</translation>
    </message>
    <message>
        <source>The file cannot be read.</source>
        <translation>Die Datei kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The file is not XML.</source>
        <translation>Die Datei ist kein XML.</translation>
    </message>
    <message>
        <source>The file is no profile: its root is &quot;%1&quot;.</source>
        <translation>Die Datei ist kein Profil: Ihr oberstes Element ist „%1“.</translation>
    </message>
</context>
<context>
    <name>KOLT::ProfileLine</name>
    <message>
        <source>version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>variant %1</source>
        <translation>Variante %1</translation>
    </message>
    <message>
        <source>Profile: %1</source>
        <translation>Profil: %1</translation>
    </message>
</context>
<context>
    <name>KOLT::ProfileOffer</name>
    <message>
        <source>The profile was replaced by version %1, which came with the program. The previous one is kept beside it as a backup.</source>
        <translation>Das Profil wurde durch Version %1 ersetzt, die mit dem Programm kam. Das bisherige liegt als Sicherungskopie daneben.</translation>
    </message>
    <message>
        <source>Version %1 of the profile came with the program. Version %2 is still in use, as it was edited.</source>
        <translation>Mit dem Programm kam Version %1 des Profils. In Gebrauch ist weiter Version %2, da sie geändert wurde.</translation>
    </message>
    <message>
        <source>Compare...</source>
        <translation>Vergleichen...</translation>
    </message>
</context>
<context>
    <name>KOLT::ProfileSelectors</name>
    <message>
        <source>Variant of the parameter profile</source>
        <translation>Variante des Parameterprofils</translation>
    </message>
    <message>
        <source>Unit system</source>
        <translation>Einheitensystem</translation>
    </message>
    <message>
        <source>Metric</source>
        <translation>Metrisch</translation>
    </message>
    <message>
        <source>Imperial</source>
        <translation>Imperial</translation>
    </message>
</context>
<context>
    <name>KOLT::ProfileSession</name>
    <message>
        <source>The profile file
%1
cannot be read, so no values can be shown.</source>
        <translation>Die Profildatei
%1
kann nicht gelesen werden, daher können keine Werte angezeigt werden.</translation>
    </message>
    <message>
        <source>Please install a valid one with &quot;Profile&quot; in the menu &quot;Help&quot;.</source>
        <translation>Bitte installieren Sie ein gültiges Profil mit „Profil“ im Menü „Hilfe“.</translation>
    </message>
    <message>
        <source>KOLT Warning</source>
        <translation>KOLT-Warnung</translation>
    </message>
    <message>
        <source>The profile that came with the program can be used instead; the broken file is kept as a backup.</source>
        <translation>Stattdessen kann das mitgelieferte Profil verwendet werden; die unlesbare Datei bleibt als Sicherungskopie.</translation>
    </message>
    <message>
        <source>Use the shipped profile</source>
        <translation>Mitgeliefertes Profil verwenden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>KOLT::ProjectBar</name>
    <message>
        <source>Manual (F1)</source>
        <translation>Handbuch (F1)</translation>
    </message>
    <message>
        <source>New project</source>
        <translation>Neues Projekt</translation>
    </message>
    <message>
        <source>Project: the selected parameters</source>
        <translation>Projekt: die ausgewählten Parameter</translation>
    </message>
    <message>
        <source>* Changed since it was saved (Ctrl+S)</source>
        <translation>* Seit dem Speichern geändert (Strg+S)</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Gespeichert</translation>
    </message>
    <message>
        <source>Project %1</source>
        <translation>Projekt %1</translation>
    </message>
</context>
<context>
    <name>KOLT::ProjectSession</name>
    <message>
        <source>KOLT Warning</source>
        <translation>KOLT-Warnung</translation>
    </message>
    <message>
        <source>Current Project not saved !
Save it now ?</source>
        <translation>Das aktuelle Projekt ist nicht gespeichert!
Jetzt speichern?</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Open KOLT Project</source>
        <translation>KOLT-Projekt öffnen</translation>
    </message>
    <message>
        <source>Project Files (*.xml)</source>
        <translation>Projektdateien (*.xml)</translation>
    </message>
    <message>
        <source>The project file
%1
cannot be read. The selected parameters are unchanged.</source>
        <translation>Die Projektdatei
%1
kann nicht gelesen werden. Die ausgewählten Parameter bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Save KOLT Project</source>
        <translation>KOLT-Projekt speichern</translation>
    </message>
    <message>
        <source>The project could not be saved to
%1
Please check that the folder can be written and is not full, or save it elsewhere.</source>
        <translation>Das Projekt konnte nicht gespeichert werden:
%1
Bitte prüfen Sie, ob der Ordner beschreibbar und nicht voll ist, oder speichern Sie es an einem anderen Ort.</translation>
    </message>
    <message>
        <source>The project file
%1
cannot be read. It is kept as
%2
and some default parameters are selected instead.</source>
        <translation>Die Projektdatei
%1
kann nicht gelesen werden. Sie bleibt als
%2
erhalten, und einige übliche Parameter sind stattdessen ausgewählt.</translation>
    </message>
    <message>
        <source>Without a profile there is no selection, so the project is not saved. Please install a valid profile first.</source>
        <translation>Ohne Profil gibt es keine Auswahl, und das Projekt wird nicht gesichert. Bitte installieren Sie zuerst ein gültiges Profil.</translation>
    </message>
    <message>
        <source>The selected parameters could not be saved to
%1
The folder cannot be written, or is full.</source>
        <translation>Die ausgewählten Parameter konnten nicht gesichert werden:
%1
Der Ordner ist nicht beschreibbar oder voll.</translation>
    </message>
    <message>
        <source>The file
%1
is not a KOLT project. The selected parameters are unchanged.</source>
        <translation>Die Datei
%1
ist kein KOLT-Projekt. Die gewählten Parameter bleiben, wie sie sind.</translation>
    </message>
</context>
<context>
    <name>KOLT::ProvenCopy</name>
    <message>
        <source>Not everything could be written. The disk may be full.</source>
        <translation>Es konnte nicht alles geschrieben werden. Möglicherweise ist der Datenträger voll.</translation>
    </message>
    <message>
        <source>Only %1 of %2 bytes could be read.</source>
        <translation>Nur %1 von %2 Bytes konnten gelesen werden.</translation>
    </message>
    <message>
        <source>What is on the disk after copying is not what was read. The disk may be damaged.</source>
        <translation>Auf der Platte steht nach dem Kopieren nicht, was gelesen wurde. Vielleicht ist die Platte defekt.</translation>
    </message>
    <message>
        <source>There is another file of that name.</source>
        <translation>Es gibt eine andere Datei dieses Namens.</translation>
    </message>
    <message>
        <source>The folder %1 cannot be created.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
</context>
<context>
    <name>KOLT::RecordList</name>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation>Startzeit</translation>
    </message>
    <message>
        <source>Stop Time</source>
        <translation>Endzeit</translation>
    </message>
    <message>
        <source>Bus Type</source>
        <translation>Bustyp</translation>
    </message>
    <message>
        <source>ECU Serial Number</source>
        <translation>ECU-Seriennummer</translation>
    </message>
    <message>
        <source>Software Part Nr. A</source>
        <translation>Software-Teilenr. A</translation>
    </message>
    <message>
        <source>Software Part Nr. B</source>
        <translation>Software-Teilenr. B</translation>
    </message>
    <message>
        <source>ECU Type</source>
        <translation>ECU-Typ</translation>
    </message>
    <message>
        <source>EMU SW Version</source>
        <translation>EMU-Softwareversion</translation>
    </message>
    <message>
        <source>Engine Serial Nr.</source>
        <translation>Motor-Seriennummer</translation>
    </message>
    <message>
        <source>Engine Type</source>
        <translation>Motortyp</translation>
    </message>
    <message>
        <source>Samples Total</source>
        <translation>Messwerte gesamt</translation>
    </message>
    <message>
        <source>Start Time: </source>
        <translation>Startzeit: </translation>
    </message>
    <message>
        <source>Stop Time: </source>
        <translation>Endzeit: </translation>
    </message>
    <message>
        <source>Raw Data</source>
        <translation>Rohdaten</translation>
    </message>
</context>
<context>
    <name>KOLT::RecordingNotice</name>
    <message>
        <source>Use variant %1</source>
        <translation>Variante %1 verwenden</translation>
    </message>
</context>
<context>
    <name>KOLT::RecordingStrip</name>
    <message>
        <source>What was recorded</source>
        <translation>Was aufgezeichnet wurde</translation>
    </message>
    <message>
        <source>What was recorded: an empty box is a hole, hatching is time recorded twice, a triangle is a jump of the counter. A click lists all findings.</source>
        <translation>Was aufgezeichnet wurde: Ein leerer Kasten ist eine Lücke, Schraffur ist doppelt aufgezeichnete Zeit, ein Dreieck ist ein Sprung des Zählers. Ein Klick zeigt alle Befunde.</translation>
    </message>
    <message>
        <source>Holes, jumps and doubled times over the loaded data; the window Recording lists them</source>
        <translation>Lücken, Sprünge und doppelte Zeiten in den geladenen Daten; das Fenster Aufzeichnung listet sie auf</translation>
    </message>
</context>
<context>
    <name>KOLT::ReplayBar</name>
    <message>
        <source>Date and time of the current moment</source>
        <translation>Datum und Uhrzeit des aktuellen Zeitpunkts</translation>
    </message>
    <message>
        <source>Time since the recording unit was switched on</source>
        <translation>Zeit seit dem Einschalten des Aufzeichnungsgeräts</translation>
    </message>
    <message>
        <source>Start or pause the replay</source>
        <translation>Wiedergabe starten oder anhalten</translation>
    </message>
    <message>
        <source>Replay Stop</source>
        <translation>Wiedergabe stoppen</translation>
    </message>
    <message>
        <source>Stop the replay and go back to the start</source>
        <translation>Wiedergabe stoppen und zurück an den Anfang</translation>
    </message>
    <message>
        <source>Position within the loaded data</source>
        <translation>Position in den geladenen Daten</translation>
    </message>
    <message>
        <source>Go to a time since the recording unit was switched on</source>
        <translation>Zu einer Zeit seit dem Einschalten des Aufzeichnungsgeräts springen</translation>
    </message>
    <message>
        <source>Speed of the replay</source>
        <translation>Tempo der Wiedergabe</translation>
    </message>
    <message>
        <source>Speed </source>
        <translation>Tempo </translation>
    </message>
    <message>
        <source>Replay Pause</source>
        <translation>Wiedergabe anhalten</translation>
    </message>
    <message>
        <source>Replay Run</source>
        <translation>Wiedergabe fortsetzen</translation>
    </message>
    <message>
        <source>Replay Start</source>
        <translation>Wiedergabe starten</translation>
    </message>
</context>
<context>
    <name>KOLT::SafeFile</name>
    <message>
        <source>Not everything could be written. The disk may be full.</source>
        <translation>Es konnte nicht alles geschrieben werden. Möglicherweise ist der Datenträger voll.</translation>
    </message>
    <message>
        <source>This is not a regular file.</source>
        <translation>Dies ist keine gewöhnliche Datei.</translation>
    </message>
</context>
<context>
    <name>KOLT::SplashScreen</name>
    <message>
        <source>Engine recording debriefing</source>
        <translation>Debriefing von Motoraufzeichnungen</translation>
    </message>
</context>
<context>
    <name>KOLT::StatusBar</name>
    <message>
        <source>The loaded data; times since the recording unit was switched on</source>
        <translation>Geladene Daten; Zeiten seit dem Einschalten des Aufzeichnungsgeräts</translation>
    </message>
</context>
<context>
    <name>KOLT::TileServerBox</name>
    <message>
        <source>A plain address, a template with {z}, {x} and {y}, or a folder with tiles as zoom/column/row.png</source>
        <translation>Eine einfache Adresse, eine Vorlage mit {z}, {x} und {y} oder ein Ordner mit Kacheln als Zoom/Spalte/Zeile.png</translation>
    </message>
    <message>
        <source>Folder...</source>
        <translation>Ordner...</translation>
    </message>
    <message>
        <source>Choose a folder with map tiles on this computer</source>
        <translation>Einen Ordner mit Kacheln auf diesem Rechner wählen</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Testen</translation>
    </message>
    <message>
        <source>Ask the server, or look into the folder, for a tile</source>
        <translation>Den Server nach einer Kachel fragen oder im Ordner eine suchen</translation>
    </message>
    <message>
        <source>Folder with map tiles</source>
        <translation>Ordner mit Kacheln</translation>
    </message>
    <message>
        <source>Testing ...</source>
        <translation>Test läuft ...</translation>
    </message>
</context>
<context>
    <name>KOLT::TimeTableModel</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Clock time</source>
        <translation>Uhrzeit</translation>
    </message>
</context>
<context>
    <name>KOLT::Trust</name>
    <message>
        <source>File twice</source>
        <translation>Datei doppelt</translation>
    </message>
    <message>
        <source>File unreadable</source>
        <translation>Datei nicht lesbar</translation>
    </message>
    <message>
        <source>File missing</source>
        <translation>Datei fehlt</translation>
    </message>
    <message>
        <source>File cut short</source>
        <translation>Datei abgeschnitten</translation>
    </message>
    <message>
        <source>Files overlap</source>
        <translation>Dateien überlappen sich</translation>
    </message>
    <message>
        <source>Times jump</source>
        <translation>Zeiten springen</translation>
    </message>
    <message>
        <source>Hole</source>
        <translation>Lücke</translation>
    </message>
    <message>
        <source>Message silent</source>
        <translation>Nachricht fehlt</translation>
    </message>
    <message>
        <source>No position</source>
        <translation>Keine Position</translation>
    </message>
    <message>
        <source>Not a number</source>
        <translation>Keine Zahl</translation>
    </message>
    <message>
        <source>Flight unfinished</source>
        <translation>Flug unvollständig</translation>
    </message>
    <message>
        <source>Clock off</source>
        <translation>Uhrzeit verschoben</translation>
    </message>
    <message>
        <source>Serial number changes</source>
        <translation>Seriennummer wechselt</translation>
    </message>
    <message>
        <source>Software changes</source>
        <translation>Software wechselt</translation>
    </message>
    <message>
        <source>Other engine</source>
        <translation>Anderer Motor</translation>
    </message>
    <message>
        <source>Before the first cycle</source>
        <translation>Vor dem ersten Zyklus</translation>
    </message>
    <message>
        <source>Unknown messages</source>
        <translation>Unbekannte Nachrichten</translation>
    </message>
    <message>
        <source>Never recorded</source>
        <translation>Nie aufgezeichnet</translation>
    </message>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 und %n weitere</numerusform>
            <numerusform>%1 und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 is a copy of %2: what it holds counts twice in fuel, altitudes and all sums. Take the copy out of the folder.</source>
        <translation>%1 ist eine Kopie von %2: Ihr Inhalt zählt in Kraftstoff, Höhen und allen Summen doppelt. Nehmen Sie die Kopie aus dem Ordner.</translation>
    </message>
    <message>
        <source>%1 could not be read: its flights are lacking, and figures around it are wrong. Copy it from the card once more.</source>
        <translation>%1 ließ sich nicht lesen: Ihre Flüge fehlen, und Werte in ihrer Umgebung sind falsch. Kopieren Sie sie noch einmal von der Karte.</translation>
    </message>
    <message>
        <source>Between %1 and %2 a file is missing (%3): altitudes, fuel and times of flights there are wrong, and so are all sums. Look for it on the card.</source>
        <translation>Zwischen %1 und %2 fehlt eine Datei (%3): Höhen, Kraftstoff und Zeiten der Flüge dort sind falsch, ebenso alle Summen. Suchen Sie die Datei auf der Karte.</translation>
    </message>
    <message>
        <source>Between %1 and %2 files are missing, among them the one that opens an engine run: two runs lie in one cycle, and dates, figures and sums from %2 on are wrong. Look for them on the card.</source>
        <translation>Zwischen %1 und %2 fehlen Dateien, darunter die erste eines Motorlaufs: Zwei Läufe liegen in einem Zyklus, und Daten, Werte und Summen ab %2 sind falsch. Suchen Sie die Dateien auf der Karte.</translation>
    </message>
    <message>
        <source>Between %1 and %2 files are missing: the end of this engine run, or other runs. Sums lack what they hold. Look for them on the card.</source>
        <translation>Zwischen %1 und %2 fehlen Dateien: das Ende dieses Motorlaufs oder andere Läufe. Den Summen fehlt deren Inhalt. Suchen Sie die Dateien auf der Karte.</translation>
    </message>
    <message>
        <source>%1 is cut short: figures of a flight at its end may lack something. Copy it from the card once more, or take its end with care.</source>
        <translation>%1 ist abgeschnitten: Den Werten eines Flugs an ihrem Ende kann etwas fehlen. Kopieren Sie sie noch einmal von der Karte, oder behandeln Sie ihr Ende mit Vorsicht.</translation>
    </message>
    <message>
        <source>%1 is cut short by %2: altitudes, fuel and times of a flight at its end may be wrong. Copy it from the card once more.</source>
        <translation>%1 ist um %2 abgeschnitten: Höhen, Kraftstoff und Zeiten eines Flugs an ihrem Ende können falsch sein. Kopieren Sie sie noch einmal von der Karte.</translation>
    </message>
    <message>
        <source>%1 and %2 hold the same time: fuel, altitudes and sums count it twice. Take one of them out of the folder.</source>
        <translation>%1 und %2 enthalten dieselbe Zeit: Kraftstoff, Höhen und Summen zählen sie doppelt. Nehmen Sie eine davon aus dem Ordner.</translation>
    </message>
    <message>
        <source>The times in %1 do not go on from the file before, and belong to another engine run: figures and dates around there are wrong. Load these files alone, or give them back their names.</source>
        <translation>Die Zeiten in %1 setzen die Datei davor nicht fort und gehören zu einem anderen Motorlauf: Werte und Daten in der Umgebung sind falsch. Laden Sie diese Dateien allein, oder geben Sie ihnen ihre Namen zurück.</translation>
    </message>
    <message>
        <source>By their times %1 belong in another order than by their names: figures of flights in them are wrong. Give the files back their names.</source>
        <translation>Nach ihren Zeiten gehören %1 in eine andere Reihenfolge als nach ihren Namen: Werte der Flüge darin sind falsch. Geben Sie den Dateien ihre Namen zurück.</translation>
    </message>
    <message numerus="yes">
        <source>%n time stamp(s) in %1 are far off: figures of flights there may be wrong. Take them with care.</source>
        <translation>
            <numerusform>%n Zeitstempel in %1 liegt weit daneben: Werte der Flüge dort können falsch sein. Behandeln Sie sie mit Vorsicht.</numerusform>
            <numerusform>%n Zeitstempel in %1 liegen weit daneben: Werte der Flüge dort können falsch sein. Behandeln Sie sie mit Vorsicht.</numerusform>
        </translation>
    </message>
    <message>
        <source>The counter jumps within %1: times, fuel and altitudes of flights there are wrong. Take them with care.</source>
        <translation>Der Zähler springt innerhalb von %1: Zeiten, Kraftstoff und Höhen der Flüge dort sind falsch. Behandeln Sie sie mit Vorsicht.</translation>
    </message>
    <message>
        <source>For %1 nothing was recorded: altitudes, fuel and times of a flight there may be wrong. Take them with care.</source>
        <translation>%1 lang wurde nichts aufgezeichnet: Höhen, Kraftstoff und Zeiten eines Flugs dort können falsch sein. Behandeln Sie sie mit Vorsicht.</translation>
    </message>
    <message numerus="yes">
        <source>%n times nothing was recorded, for %1 in all: altitudes, fuel and times of flights there may be wrong. Look at the card and the unit.</source>
        <translation>
            <numerusform>%n Mal wurde nichts aufgezeichnet, insgesamt %1 lang: Höhen, Kraftstoff und Zeiten der Flüge dort können falsch sein. Prüfen Sie Karte und Gerät.</numerusform>
            <numerusform>%n Mal wurde nichts aufgezeichnet, insgesamt %1 lang: Höhen, Kraftstoff und Zeiten der Flüge dort können falsch sein. Prüfen Sie Karte und Gerät.</numerusform>
        </translation>
    </message>
    <message>
        <source>For %1 nothing came of %2: what is made from it lacks that time. Look at the sensor and its cable when it happens again.</source>
        <translation>%1 lang kam nichts von %2: Was daraus gewonnen wird, enthält diese Zeit nicht. Prüfen Sie Sensor und Kabel, wenn es wieder vorkommt.</translation>
    </message>
    <message>
        <source>For %1 there was no position in flight: altitudes, speeds and distances of the flight may be wrong, and it may count as two. Look at the antenna when it happens again.</source>
        <translation>%1 lang gab es im Flug keine Position: Höhen, Geschwindigkeiten und Strecken des Flugs können falsch sein, und er zählt vielleicht als zwei. Prüfen Sie die Antenne, wenn es wieder vorkommt.</translation>
    </message>
    <message numerus="yes">
        <source>%n value(s) of %1 are no numbers and left out: figures made from it lack them. Look at the sensor.</source>
        <translation>
            <numerusform>%n Wert von %1 ist keine Zahl und bleibt weg: Was daraus gewonnen wird, enthält ihn nicht. Prüfen Sie den Sensor.</numerusform>
            <numerusform>%n Werte von %1 sind keine Zahlen und bleiben weg: Was daraus gewonnen wird, enthält sie nicht. Prüfen Sie den Sensor.</numerusform>
        </translation>
    </message>
    <message>
        <source>A take-off has no landing before the recording ends: the flight is in no list, its time is in no sum, and its fuel counts as outside flights. Look whether the recording goes on elsewhere.</source>
        <translation>Auf einen Start folgt bis zum Ende der Aufzeichnung keine Landung: Der Flug steht in keiner Liste, seine Zeit in keiner Summe, und sein Kraftstoff zählt als außerhalb der Flüge. Sehen Sie nach, ob die Aufzeichnung anderswo weitergeht.</translation>
    </message>
    <message>
        <source>The recording begins in the air: the first flight lacks its take-off, and its figures are wrong. Look whether the recording begins elsewhere.</source>
        <translation>Die Aufzeichnung beginnt in der Luft: Dem ersten Flug fehlt der Start, und seine Werte sind falsch. Sehen Sie nach, ob die Aufzeichnung anderswo beginnt.</translation>
    </message>
    <message>
        <source>A flight begins at the edge of the recording: its figures may lack something. Look whether the recording begins elsewhere.</source>
        <translation>Ein Flug beginnt am Rand der Aufzeichnung: Seinen Werten kann etwas fehlen. Sehen Sie nach, ob die Aufzeichnung anderswo beginnt.</translation>
    </message>
    <message>
        <source>A flight ends at the edge of the recording: its figures may lack something. Look whether the recording goes on elsewhere.</source>
        <translation>Ein Flug endet am Rand der Aufzeichnung: Seinen Werten kann etwas fehlen. Sehen Sie nach, ob die Aufzeichnung anderswo weitergeht.</translation>
    </message>
    <message>
        <source>Dates and clock times are %1 early, as the date of %2 does not fit the files behind it; times on the counter are right. Add that to them.</source>
        <translation>Daten und Uhrzeiten sind um %1 zu früh, da das Datum von %2 nicht zu den Dateien danach passt; Zeiten auf dem Zähler stimmen. Zählen Sie das hinzu.</translation>
    </message>
    <message>
        <source>Dates and clock times are %1 late, as the recording begins with %2, in the middle of an engine run; times on the counter are right. Load the whole run, or take that off them.</source>
        <translation>Daten und Uhrzeiten sind um %1 zu spät, da die Aufzeichnung mit %2 mitten in einem Motorlauf beginnt; Zeiten auf dem Zähler stimmen. Laden Sie den ganzen Lauf, oder ziehen Sie das ab.</translation>
    </message>
    <message>
        <source>These files lie before the first engine run: the file that opened theirs is not on the card. Sums lack what it holds.</source>
        <translation>Diese Dateien liegen vor dem ersten Motorlauf: Die erste Datei ihres Laufs ist nicht auf der Karte. Den Summen fehlt deren Inhalt.</translation>
    </message>
    <message>
        <source>The engine&apos;s serial number</source>
        <translation>Die Seriennummer des Motors</translation>
    </message>
    <message>
        <source>The unit&apos;s serial number</source>
        <translation>Die Seriennummer des Geräts</translation>
    </message>
    <message>
        <source>The software</source>
        <translation>Die Software</translation>
    </message>
    <message>
        <source>%1 changes within the cycle from %2 to %3: values may be sent in another way, above all the fuel. Compare them before and behind.</source>
        <translation>%1 wechselt innerhalb des Zyklus von %2 zu %3: Werte, vor allem der Kraftstoff, können anders gesendet werden. Vergleichen Sie sie davor und danach.</translation>
    </message>
    <message>
        <source>%1 changes within the cycle (%2, %3): files of two aircraft may be mixed, and their figures and sums with them. Put files of each into a folder of their own.</source>
        <translation>%1 wechselt innerhalb des Zyklus (%2, %3): Dateien zweier Flugzeuge können vermischt sein, und mit ihnen Werte und Summen. Legen Sie die Dateien jedes Flugzeugs in einen eigenen Ordner.</translation>
    </message>
    <message>
        <source>The recording is of an engine &quot;%1&quot;, the variant of the profile is for &quot;%2&quot;: limits and exceedances may be those of another engine. Choose another variant.</source>
        <translation>Die Aufzeichnung stammt von einem Motor „%1“, die Variante des Profils gilt für „%2“: Grenzen und Überschreitungen können die eines anderen Motors sein. Wählen Sie eine andere Variante.</translation>
    </message>
    <message numerus="yes">
        <source>%n message(s), %1 % of all samples, are not in the profile and shown nowhere; the figures hold. Look for a newer profile, or another variant.</source>
        <translation>
            <numerusform>%n Nachricht, %1 % aller Aufzeichnungen, steht nicht im Profil und wird nirgends gezeigt; die Werte gelten. Suchen Sie ein neueres Profil oder eine andere Variante.</numerusform>
            <numerusform>%n Nachrichten, %1 % aller Aufzeichnungen, stehen nicht im Profil und werden nirgends gezeigt; die Werte gelten. Suchen Sie ein neueres Profil oder eine andere Variante.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 were never recorded: figures and limits of them are empty. Look whether the profile is for this aircraft.</source>
        <translation>%1 wurde nie aufgezeichnet: Werte und Grenzen dafür sind leer. Prüfen Sie, ob das Profil zu diesem Flugzeug gehört.</translation>
    </message>
    <message>
        <source>Case file</source>
        <translation>Fallakte</translation>
    </message>
    <message>
        <source>This is no card, but a case: what was recorded in this time, cut from %1. Flights that begin or end outside of it are not found.</source>
        <translation>Das ist keine Karte, sondern eine Fallakte: was in dieser Zeit aufgezeichnet wurde, ausgeschnitten aus %1. Flüge, die außerhalb beginnen oder enden, werden nicht gefunden.</translation>
    </message>
</context>
<context>
    <name>KOLT::TrustSession</name>
    <message>
        <source>Loading ...</source>
        <translation>Wird geladen ...</translation>
    </message>
    <message>
        <source>Nothing is loaded. Choose a cycle or a flight.</source>
        <translation>Nichts ist geladen. Wählen Sie einen Zyklus oder einen Flug.</translation>
    </message>
    <message>
        <source>Loaded data</source>
        <translation>Geladene Daten</translation>
    </message>
</context>
<context>
    <name>KOLT::VariantFit</name>
    <message>
        <source>The recording is of an engine &quot;%1&quot;, which the variant %2 is not for: its limits may be those of another engine.</source>
        <translation>Die Aufzeichnung stammt von einem Motor „%1“, für den die Variante %2 nicht gedacht ist: Ihre Grenzwerte können die eines anderen Motors sein.</translation>
    </message>
    <message>
        <source>The recording is of an engine &quot;%1&quot;, which the variant %2 is not for: its limits may be those of another engine. The variant %3 fits.</source>
        <translation>Die Aufzeichnung stammt von einem Motor „%1“, für den die Variante %2 nicht gedacht ist: Ihre Grenzwerte können die eines anderen Motors sein. Die Variante %3 passt.</translation>
    </message>
    <message>
        <source>Only %1 of the %2 recorded messages are in the profile for the variant %3: the others are shown nowhere.</source>
        <translation>Nur %1 der %2 aufgezeichneten Nachrichten stehen im Profil für die Variante %3: Die anderen werden nirgends gezeigt.</translation>
    </message>
    <message>
        <source>Look for a newer profile.</source>
        <translation>Suchen Sie ein neueres Profil.</translation>
    </message>
    <message>
        <source>The variant %1 has more of them.</source>
        <translation>Die Variante %1 hat mehr davon.</translation>
    </message>
</context>
<context>
    <name>KOLT::WelcomePanel</name>
    <message>
        <source>Open the memory card...</source>
        <translation>Speicherkarte öffnen...</translation>
    </message>
    <message>
        <source>Choose the folder that holds the record files</source>
        <translation>Den Ordner mit den Aufzeichnungsdateien wählen</translation>
    </message>
    <message>
        <source>Try the sample card</source>
        <translation>Beispielkarte ausprobieren</translation>
    </message>
    <message>
        <source>A short simulated flight that comes with the program</source>
        <translation>Ein kurzer simulierter Flug, der mit dem Programm kommt</translation>
    </message>
    <message>
        <source>Or drop the card&apos;s folder onto this window.</source>
        <translation>Oder ziehen Sie den Ordner der Karte auf dieses Fenster.</translation>
    </message>
    <message>
        <source>KOLT shows what the recording unit of your engine wrote to its memory card: how many flights, how long, how much fuel, and whether a limit was exceeded.</source>
        <translation>KOLT zeigt, was das Aufzeichnungsgerät Ihres Motors auf seine Speicherkarte geschrieben hat: wie viele Flüge, wie lange, wie viel Kraftstoff, und ob ein Grenzwert überschritten wurde.</translation>
    </message>
    <message>
        <source>Open &quot;%1&quot;</source>
        <translation>„%1“ öffnen</translation>
    </message>
    <message>
        <source>Record files were found in %1</source>
        <translation>In %1 wurden Aufzeichnungsdateien gefunden</translation>
    </message>
</context>
<context>
    <name>KOLT::WidgetColorButton</name>
    <message>
        <source>Choose another color</source>
        <translation>Eine andere Farbe wählen</translation>
    </message>
</context>
<context>
    <name>KOLT::WidgetErrorTime</name>
    <message>
        <source>%1
Class: %2
Message %3, byte %4, bit %5
Left and Right go to the occurrence before and after</source>
        <translation>%1
Klasse: %2
Nachricht %3, Byte %4, Bit %5
Links und Rechts gehen zum Auftreten davor und danach</translation>
    </message>
    <message>
        <source>ON</source>
        <translation>EIN</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>Fault, with its occurrences over the loaded data</source>
        <translation>Fehler mit seinem Auftreten in den geladenen Daten</translation>
    </message>
</context>
<context>
    <name>KOLT::WidgetFaultMatrix</name>
    <message>
        <source>Hide faults that never occurred in the loaded data</source>
        <translation>Fehler ausblenden, die in den geladenen Daten nie auftraten</translation>
    </message>
    <message>
        <source>Choose a cycle or a flight on the left to see its faults.</source>
        <translation>Wählen Sie links einen Zyklus oder einen Flug, um seine Fehler zu sehen.</translation>
    </message>
    <message>
        <source>The profile has no fault matrix.</source>
        <translation>Das Profil hat keine Fehlermatrix.</translation>
    </message>
    <message>
        <source>%1 of %2 faults occurred</source>
        <translation>%1 von %2 Fehlern aufgetreten</translation>
    </message>
    <message>
        <source>Filter the faults</source>
        <translation>Fehler filtern</translation>
    </message>
    <message>
        <source>Show only faults with this text in their name or class</source>
        <translation>Nur Fehler mit diesem Text im Namen oder in der Klasse zeigen</translation>
    </message>
    <message>
        <source>Only faults that occurred</source>
        <translation>Nur aufgetretene Fehler</translation>
    </message>
    <message>
        <source>None of these faults occurred.</source>
        <translation>Keiner dieser Fehler trat auf.</translation>
    </message>
</context>
<context>
    <name>KOLT::WidgetGraphBase</name>
    <message>
        <source>Left button: markers and cursor. Shift+left: the nearer marker, and pan. Ctrl+left or middle button: cursor.
Right button: pan. Wheel: zoom. Arrow keys: move the cursor (with Shift farther).
F: whole flight. Home, End: its ends. M: markers around the middle.
Drag a handle at the left edge to move its trace.</source>
        <translation>Linke Taste: Marker und Cursor. Umschalt+links: der nähere Marker, und Verschieben. Strg+links oder mittlere Taste: Cursor.
Rechte Taste: Verschieben. Mausrad: Zoom. Pfeiltasten: Cursor bewegen (mit Umschalt weiter).
F: ganzer Flug. Pos1, Ende: seine Enden. M: Marker um die Mitte.
Ziehen Sie einen Griff am linken Rand, um seine Kurve zu verschieben.</translation>
    </message>
    <message>
        <source>Graph</source>
        <translation>Graph</translation>
    </message>
</context>
<context>
    <name>KOLT::WidgetMap</name>
    <message>
        <source>Left button: move the map; with Shift: zoom. Wheel or double click: zoom about the pointer.
Arrow keys, + and -: move and zoom. F: whole flight. Ctrl+S: hill shading.
Click on the track or on a mark: go to that moment.</source>
        <translation>Linke Taste: Karte bewegen; mit Umschalt: zoomen. Mausrad oder Doppelklick: um den Zeiger zoomen.
Pfeiltasten, + und -: bewegen und zoomen. F: ganzer Flug. Strg+S: Geländeschattierung.
Klick auf die Spur oder eine Marke: zu diesem Moment gehen.</translation>
    </message>
    <message>
        <source>offline</source>
        <translation>offline</translation>
    </message>
    <message>
        <source>Track and texts of the map cannot be drawn with this graphics driver.</source>
        <translation>Track und Texte der Karte können mit diesem Grafiktreiber nicht gezeichnet werden.</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>Karte</translation>
    </message>
</context>
<context>
    <name>KOLT::WidgetNoGl</name>
    <message>
        <source>This cannot be shown: the graphics driver offers no usable OpenGL (2.0 or newer).
Install or update the driver, and start KOLT again.</source>
        <translation>Dies kann nicht gezeigt werden: Der Grafiktreiber bietet kein brauchbares OpenGL (2.0 oder neuer).
Installieren oder aktualisieren Sie den Treiber und starten Sie KOLT neu.</translation>
    </message>
</context>
<context>
    <name>KOLT::WidgetTimeTable</name>
    <message>
        <source>Data</source>
        <translation>Daten</translation>
    </message>
</context>
<context>
    <name>KOLT::WriteGuard</name>
    <message>
        <source>The links in this path form a loop:
%1</source>
        <translation>Die Verknüpfungen dieses Pfades führen nirgendwohin:
%1</translation>
    </message>
    <message>
        <source>Names that end with .CAN, .can or .xcb belong to recordings, which are never written. Please choose another name than
%1</source>
        <translation>Namen mit der Endung .CAN, .can oder .xcb gehören Aufzeichnungen, und diese werden nie geschrieben. Bitte wählen Sie einen anderen Namen als
%1</translation>
    </message>
    <message>
        <source>Nothing is written to the folder of the recordings, so that they remain unchanged. Please choose another folder than
%1</source>
        <translation>In den Ordner der Aufzeichnungen wird nichts geschrieben, damit sie bleiben, wie sie sind. Bitte wählen Sie einen anderen Ordner als
%1</translation>
    </message>
</context>
<context>
    <name>MapLabels</name>
    <message>
        <source>N</source>
        <comment>north</comment>
        <translation>N</translation>
    </message>
    <message>
        <source>E</source>
        <comment>east</comment>
        <translation>O</translation>
    </message>
    <message>
        <source>S</source>
        <comment>south</comment>
        <translation>S</translation>
    </message>
    <message>
        <source>W</source>
        <comment>west</comment>
        <translation>W</translation>
    </message>
</context>
<context>
    <name>MapValuePanel</name>
    <message>
        <source>Values</source>
        <translation>Werte</translation>
    </message>
</context>
<context>
    <name>Tessa::ElevationSource</name>
    <message>
        <source>The elevation file cannot be used: %1</source>
        <translation>Die Höhendatei ist nicht verwendbar: %1</translation>
    </message>
</context>
<context>
    <name>Tessa::TessaMap</name>
    <message>
        <source>The map cannot be drawn with this graphics driver: %1</source>
        <translation>Die Karte lässt sich mit diesem Grafiktreiber nicht zeichnen: %1</translation>
    </message>
    <message>
        <source>The graphics driver accepts no more pictures. The map stays coarse.</source>
        <translation>Der Grafiktreiber nimmt keine weiteren Bilder an. Die Karte bleibt grob.</translation>
    </message>
</context>
<context>
    <name>Tessa::TileCheck</name>
    <message>
        <source>The server does not answer.</source>
        <translation>Der Server antwortet nicht.</translation>
    </message>
    <message>
        <source>This is neither an address nor a folder of tiles.</source>
        <translation>Das ist weder eine Adresse noch ein Ordner mit Kacheln.</translation>
    </message>
    <message>
        <source>Not tested: KOLT is kept off the network by KOLT_OFFLINE.</source>
        <translation>Nicht getestet: KOLT_OFFLINE hält KOLT vom Netz fern.</translation>
    </message>
    <message>
        <source>There is no such folder.</source>
        <translation>Diesen Ordner gibt es nicht.</translation>
    </message>
    <message>
        <source>The folder has tiles of zoom %1.</source>
        <translation>Der Ordner hat Kacheln der Zoomstufen %1.</translation>
    </message>
    <message>
        <source>The tiles in the folder are no PNG or JPEG pictures of 256 or 512 pixels.</source>
        <translation>Die Kacheln im Ordner sind keine PNG- oder JPEG-Bilder von 256 oder 512 Pixeln.</translation>
    </message>
    <message>
        <source>There are no tiles in the folder. They are looked for as zoom/column/row.png or .jpg.</source>
        <translation>Im Ordner sind keine Kacheln. Gesucht wird Zoom/Spalte/Zeile.png oder .jpg.</translation>
    </message>
    <message>
        <source>The server sends tiles of %1 pixels.</source>
        <translation>Der Server liefert Kacheln von %1 Pixeln.</translation>
    </message>
    <message>
        <source>The server answers, but not with a PNG or JPEG picture of 256 or 512 pixels.</source>
        <translation>Der Server antwortet, aber nicht mit einem PNG- oder JPEG-Bild von 256 oder 512 Pixeln.</translation>
    </message>
    <message>
        <source>The server answers, but has no tile of the whole world (%1). It may have tiles of a region, or the address is not complete.</source>
        <translation>Der Server antwortet, hat aber keine Kachel der ganzen Welt (%1). Vielleicht hat er Kacheln einer Region, oder die Adresse ist nicht vollständig.</translation>
    </message>
    <message>
        <source>The server refuses to send tiles (%1).</source>
        <translation>Der Server verweigert Kacheln (%1).</translation>
    </message>
    <message>
        <source>The server is busy (%1). Try again later.</source>
        <translation>Der Server ist überlastet (%1). Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The server cannot be reached.</source>
        <translation>Der Server ist nicht erreichbar.</translation>
    </message>
    <message>
        <source>The server answers with an error (%1).</source>
        <translation>Der Server antwortet mit einem Fehler (%1).</translation>
    </message>
</context>
<context>
    <name>Tessa::TileSource</name>
    <message>
        <source>The tile server refuses to send tiles (%1). It is not asked again for ten minutes.</source>
        <translation>Der Kachelserver verweigert die Kacheln (%1). Er wird zehn Minuten lang nicht gefragt.</translation>
    </message>
    <message>
        <source>The address of the tile server cannot be used: %1</source>
        <translation>Die Adresse des Kachelservers ist nicht verwendbar: %1</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Starting up KOLT...</source>
        <translation>KOLT wird gestartet...</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Creating Dialogs ...</source>
        <translation>Fenster werden erstellt ...</translation>
    </message>
</context>
</TS>
