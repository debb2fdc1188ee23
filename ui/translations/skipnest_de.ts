<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>AboutSection</name>
    <message>
        <source>About</source>
        <translation>Über Skipnest</translation>
    </message>
    <message>
        <source>`skipnest help` in a terminal lists what can be done from there; `skipnest doctor` says what follows here.</source>
        <translation>`skipnest help` in einem Terminal zeigt, was von dort aus möglich ist; `skipnest doctor` sagt, was hier folgt.</translation>
    </message>
    <message>
        <source>What works here</source>
        <translation>Was hier funktioniert</translation>
    </message>
    <message>
        <source>works</source>
        <translation>funktioniert</translation>
    </message>
    <message>
        <source>Copy for a report</source>
        <translation>Für einen Bericht kopieren</translation>
    </message>
</context>
<context>
    <name>AppDelegate</name>
    <message>
        <source>Skipnest update available</source>
        <translation>Neue Version von Skipnest verfügbar</translation>
    </message>
    <message>
        <source>Skipnest is up to date</source>
        <translation>Skipnest ist auf dem neuesten Stand</translation>
    </message>
    <message>
        <source>The check for updates failed</source>
        <translation>Die Suche nach einer neuen Version ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>%1 is the newest version.</source>
        <translation>%1 ist die neueste Version.</translation>
    </message>
    <message>
        <source>Check your connection and try again.</source>
        <translation>Prüfe die Verbindung und versuche es noch einmal.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>BarHints</name>
    <message>
        <source>choose</source>
        <translation>wählen</translation>
    </message>
    <message>
        <source>open</source>
        <translation>öffnen</translation>
    </message>
    <message>
        <source>back</source>
        <translation>zurück</translation>
    </message>
    <message>
        <source>close</source>
        <translation>schließen</translation>
    </message>
    <message>
        <source>tabs</source>
        <translation>Tabs</translation>
    </message>
    <message>
        <source>Keep holding to go from window to window, let go to open</source>
        <translation>Weiter gedrückt halten geht von Fenster zu Fenster, Loslassen öffnet</translation>
    </message>
</context>
<context>
    <name>BrowserGuide</name>
    <message>
        <source>%1 is connected. Press its shortcut while it is in front: the bar shows its tabs.</source>
        <translation>%1 ist verbunden. Sein Kürzel drücken, während es vorn ist: Die Leiste zeigt die Tabs.</translation>
    </message>
    <message>
        <source>This %1 runs in a sandbox that starts no program outside of it, so Skipnest cannot be reached from there. Its ordinary package works.</source>
        <translation>Dieses %1 läuft in einer Sandbox, die kein Programm außerhalb startet; Skipnest ist von dort nicht zu erreichen. Mit dem gewöhnlichen Paket geht es.</translation>
    </message>
    <message>
        <source>Waiting for %1 …</source>
        <translation>Warten auf %1 …</translation>
    </message>
    <message>
        <source>Load the extension, once for each profile</source>
        <translation>Erweiterung laden, einmal je Profil</translation>
    </message>
    <message>
        <source>Type this address in %1:</source>
        <translation>In %1 diese Adresse eingeben:</translation>
    </message>
    <message>
        <source>Copy the address</source>
        <translation>Adresse kopieren</translation>
    </message>
    <message>
        <source>Click “Load Temporary Add-on…”.</source>
        <translation>Auf „Temporäres Add-on laden…“ klicken.</translation>
    </message>
    <message>
        <source>Switch on “Developer mode” at the top right, then click “Load unpacked”.</source>
        <translation>Oben rechts „Entwicklermodus“ einschalten, dann auf „Entpackte Erweiterung laden“ klicken.</translation>
    </message>
    <message>
        <source>Choose this file:</source>
        <translation>Diese Datei wählen:</translation>
    </message>
    <message>
        <source>Choose this folder:</source>
        <translation>Diesen Ordner wählen:</translation>
    </message>
    <message>
        <source>Copy the file&apos;s path</source>
        <translation>Pfad der Datei kopieren</translation>
    </message>
    <message>
        <source>Copy the folder&apos;s path</source>
        <translation>Pfad des Ordners kopieren</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>A temporary add-on leaves when %1 ends. To stay, it has to be a file signed by Mozilla: release versions and ESR take no other. Developer Edition and Nightly do, with xpinstall.signatures.required off in about:config.</source>
        <translation>Ein temporäres Add-on verschwindet, wenn %1 endet. Um zu bleiben, muss es eine von Mozilla signierte Datei sein: Normale Versionen und ESR nehmen keine andere. Developer Edition und Nightly schon, wenn xpinstall.signatures.required in about:config aus ist.</translation>
    </message>
    <message>
        <source>The extension reads titles and addresses of open tabs, never pages, and nothing in private windows. They stay in memory on this computer. %1 learns which program to start from %2; `skipnest browser remove` takes that back.</source>
        <translation>Die Erweiterung liest Titel und Adressen offener Tabs, niemals Seiten, und nichts in privaten Fenstern. Sie bleiben im Arbeitsspeicher dieses Rechners. Welches Programm %1 starten darf, steht in %2; `skipnest browser remove` nimmt das zurück.</translation>
    </message>
</context>
<context>
    <name>BrowserPrompt</name>
    <message>
        <source>your browser</source>
        <translation>Browser</translation>
    </message>
    <message>
        <source>Let Skipnest switch %1 tabs</source>
        <translation>Skipnest die Tabs von %1 wechseln lassen</translation>
    </message>
    <message>
        <source>To step through tabs and search them, Skipnest needs its extension in %1. Loading it takes a minute.</source>
        <translation>Um Tabs durchzugehen und zu durchsuchen, braucht Skipnest seine Erweiterung in %1. Sie zu laden dauert eine Minute.</translation>
    </message>
    <message>
        <source>Show me how</source>
        <translation>Zeigen, wie</translation>
    </message>
    <message>
        <source>Later</source>
        <translation>Später</translation>
    </message>
</context>
<context>
    <name>BrowsersScreen</name>
    <message>
        <source>Browser tabs</source>
        <translation>Browser-Tabs</translation>
    </message>
    <message>
        <source>No browser was found whose tabs could be listed.</source>
        <translation>Kein Browser gefunden, dessen Tabs sich zeigen ließen.</translation>
    </message>
    <message>
        <source>A browser tells of its tabs only through an extension. Choose one to see how it is loaded.</source>
        <translation>Ein Browser verrät seine Tabs nur einer Erweiterung. Einen wählen, um zu sehen, wie sie geladen wird.</translation>
    </message>
</context>
<context>
    <name>ChallengeBoardFace</name>
    <message>
        <source>Change name or flag</source>
        <translation>Name oder Flagge ändern</translation>
    </message>
    <message>
        <source>Open web leaderboard</source>
        <translation>Web-Rangliste öffnen</translation>
    </message>
    <message>
        <source>Leave…</source>
        <translation>Aussteigen …</translation>
    </message>
    <message>
        <source>Jumps</source>
        <translation>Sprünge</translation>
    </message>
    <message>
        <source>Min.</source>
        <translation>Min.</translation>
    </message>
    <message>
        <source>Streak</source>
        <translation>Serie</translation>
    </message>
    <message>
        <source>World leaderboard</source>
        <translation>Weltrangliste</translation>
    </message>
</context>
<context>
    <name>ChallengeBoardRow</name>
    <message>
        <source>your own entry</source>
        <translation>eigener Eintrag</translation>
    </message>
</context>
<context>
    <name>ChallengeForm</name>
    <message>
        <source>🌍 Global Jump Challenge</source>
        <translation>🌍 Globale Sprung-Challenge</translation>
    </message>
    <message>
        <source>Put your jumps on the world leaderboard - anonymous, just a name and a flag.</source>
        <translation>Die eigenen Sprünge auf der Weltrangliste – anonym, nur ein Name und eine Flagge.</translation>
    </message>
    <message>
        <source>Your name on the board</source>
        <translation>Name auf der Rangliste</translation>
    </message>
    <message>
        <source>Any name you like</source>
        <translation>Ein Name nach Wahl</translation>
    </message>
    <message>
        <source>Your flag</source>
        <translation>Flagge</translation>
    </message>
    <message>
        <source>Sends only: name, flag, jumps, minutes, streak.</source>
        <translation>Gesendet werden nur: Name, Flagge, Sprünge, Minuten, Serie.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>Wird geprüft …</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Join</source>
        <translation>Mitmachen</translation>
    </message>
    <message>
        <source>Open web leaderboard</source>
        <translation>Web-Rangliste öffnen</translation>
    </message>
</context>
<context>
    <name>ChallengeLeaveFace</name>
    <message>
        <source>Leave the challenge?</source>
        <translation>Aus der Challenge aussteigen?</translation>
    </message>
    <message>
        <source>Your entry is deleted from the leaderboard, and nothing more is sent. Your own statistics stay here.</source>
        <translation>Der Eintrag wird von der Rangliste gelöscht, und es wird nichts mehr gesendet. Die eigene Statistik bleibt hier.</translation>
    </message>
    <message>
        <source>Leaving…</source>
        <translation>Wird gelöscht …</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>Aussteigen</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>Dabeibleiben</translation>
    </message>
</context>
<context>
    <name>ChallengeScreen</name>
    <message>
        <source>Change name or flag</source>
        <translation>Name oder Flagge ändern</translation>
    </message>
    <message>
        <source>World leaderboard</source>
        <translation>Weltrangliste</translation>
    </message>
    <message>
        <source>Read the board again</source>
        <translation>Rangliste neu laden</translation>
    </message>
</context>
<context>
    <name>ComboField</name>
    <message>
        <source>No key</source>
        <translation>Keine Taste</translation>
    </message>
    <message>
        <source>%1: press the keys</source>
        <translation>%1: Tasten drücken</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Escape ends the recording</source>
        <translation>Escape beendet die Aufnahme</translation>
    </message>
    <message>
        <source>Press to record a key</source>
        <translation>Drücken, um eine Taste aufzunehmen</translation>
    </message>
    <message>
        <source>Press the keys… Esc ends</source>
        <translation>Tasten drücken … Esc beendet</translation>
    </message>
    <message>
        <source>Record</source>
        <translation>Aufnehmen</translation>
    </message>
    <message>
        <source>Clear the key</source>
        <translation>Taste entfernen</translation>
    </message>
</context>
<context>
    <name>ComboWording</name>
    <message>
        <source>Ctrl</source>
        <translation>Strg</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Umschalt</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
</context>
<context>
    <name>Countries</name>
    <message>
        <source>Andorra</source>
        <translation>Andorra</translation>
    </message>
    <message>
        <source>United Arab Emirates</source>
        <translation>Vereinigte Arabische Emirate</translation>
    </message>
    <message>
        <source>Afghanistan</source>
        <translation>Afghanistan</translation>
    </message>
    <message>
        <source>Antigua &amp; Barbuda</source>
        <translation>Antigua und Barbuda</translation>
    </message>
    <message>
        <source>Anguilla</source>
        <translation>Anguilla</translation>
    </message>
    <message>
        <source>Albania</source>
        <translation>Albanien</translation>
    </message>
    <message>
        <source>Armenia</source>
        <translation>Armenien</translation>
    </message>
    <message>
        <source>Angola</source>
        <translation>Angola</translation>
    </message>
    <message>
        <source>Antarctica</source>
        <translation>Antarktis</translation>
    </message>
    <message>
        <source>Argentina</source>
        <translation>Argentinien</translation>
    </message>
    <message>
        <source>American Samoa</source>
        <translation>Amerikanisch-Samoa</translation>
    </message>
    <message>
        <source>Austria</source>
        <translation>Österreich</translation>
    </message>
    <message>
        <source>Australia</source>
        <translation>Australien</translation>
    </message>
    <message>
        <source>Aruba</source>
        <translation>Aruba</translation>
    </message>
    <message>
        <source>Åland Islands</source>
        <translation>Ålandinseln</translation>
    </message>
    <message>
        <source>Azerbaijan</source>
        <translation>Aserbaidschan</translation>
    </message>
    <message>
        <source>Bosnia &amp; Herzegovina</source>
        <translation>Bosnien und Herzegowina</translation>
    </message>
    <message>
        <source>Barbados</source>
        <translation>Barbados</translation>
    </message>
    <message>
        <source>Bangladesh</source>
        <translation>Bangladesch</translation>
    </message>
    <message>
        <source>Belgium</source>
        <translation>Belgien</translation>
    </message>
    <message>
        <source>Burkina Faso</source>
        <translation>Burkina Faso</translation>
    </message>
    <message>
        <source>Bulgaria</source>
        <translation>Bulgarien</translation>
    </message>
    <message>
        <source>Bahrain</source>
        <translation>Bahrain</translation>
    </message>
    <message>
        <source>Burundi</source>
        <translation>Burundi</translation>
    </message>
    <message>
        <source>Benin</source>
        <translation>Benin</translation>
    </message>
    <message>
        <source>St. Barthélemy</source>
        <translation>St. Barthélemy</translation>
    </message>
    <message>
        <source>Bermuda</source>
        <translation>Bermuda</translation>
    </message>
    <message>
        <source>Brunei</source>
        <translation>Brunei</translation>
    </message>
    <message>
        <source>Bolivia</source>
        <translation>Bolivien</translation>
    </message>
    <message>
        <source>Caribbean Netherlands</source>
        <translation>Karibische Niederlande</translation>
    </message>
    <message>
        <source>Brazil</source>
        <translation>Brasilien</translation>
    </message>
    <message>
        <source>Bahamas</source>
        <translation>Bahamas</translation>
    </message>
    <message>
        <source>Bhutan</source>
        <translation>Bhutan</translation>
    </message>
    <message>
        <source>Bouvet Island</source>
        <translation>Bouvetinsel</translation>
    </message>
    <message>
        <source>Botswana</source>
        <translation>Botsuana</translation>
    </message>
    <message>
        <source>Belarus</source>
        <translation>Belarus</translation>
    </message>
    <message>
        <source>Belize</source>
        <translation>Belize</translation>
    </message>
    <message>
        <source>Canada</source>
        <translation>Kanada</translation>
    </message>
    <message>
        <source>Cocos Islands</source>
        <translation>Kokosinseln</translation>
    </message>
    <message>
        <source>Congo - Kinshasa</source>
        <translation>Kongo-Kinshasa</translation>
    </message>
    <message>
        <source>Central African Republic</source>
        <translation>Zentralafrikanische Republik</translation>
    </message>
    <message>
        <source>Congo - Brazzaville</source>
        <translation>Kongo-Brazzaville</translation>
    </message>
    <message>
        <source>Switzerland</source>
        <translation>Schweiz</translation>
    </message>
    <message>
        <source>Côte d&apos;Ivoire</source>
        <translation>Elfenbeinküste</translation>
    </message>
    <message>
        <source>Cook Islands</source>
        <translation>Cookinseln</translation>
    </message>
    <message>
        <source>Chile</source>
        <translation>Chile</translation>
    </message>
    <message>
        <source>Cameroon</source>
        <translation>Kamerun</translation>
    </message>
    <message>
        <source>China</source>
        <translation>China</translation>
    </message>
    <message>
        <source>Colombia</source>
        <translation>Kolumbien</translation>
    </message>
    <message>
        <source>Costa Rica</source>
        <translation>Costa Rica</translation>
    </message>
    <message>
        <source>Cuba</source>
        <translation>Kuba</translation>
    </message>
    <message>
        <source>Cape Verde</source>
        <translation>Kap Verde</translation>
    </message>
    <message>
        <source>Curaçao</source>
        <translation>Curaçao</translation>
    </message>
    <message>
        <source>Christmas Island</source>
        <translation>Weihnachtsinsel</translation>
    </message>
    <message>
        <source>Cyprus</source>
        <translation>Zypern</translation>
    </message>
    <message>
        <source>Czechia</source>
        <translation>Tschechien</translation>
    </message>
    <message>
        <source>Germany</source>
        <translation>Deutschland</translation>
    </message>
    <message>
        <source>Djibouti</source>
        <translation>Dschibuti</translation>
    </message>
    <message>
        <source>Denmark</source>
        <translation>Dänemark</translation>
    </message>
    <message>
        <source>Dominica</source>
        <translation>Dominica</translation>
    </message>
    <message>
        <source>Dominican Republic</source>
        <translation>Dominikanische Republik</translation>
    </message>
    <message>
        <source>Algeria</source>
        <translation>Algerien</translation>
    </message>
    <message>
        <source>Ecuador</source>
        <translation>Ecuador</translation>
    </message>
    <message>
        <source>Estonia</source>
        <translation>Estland</translation>
    </message>
    <message>
        <source>Egypt</source>
        <translation>Ägypten</translation>
    </message>
    <message>
        <source>Western Sahara</source>
        <translation>Westsahara</translation>
    </message>
    <message>
        <source>Eritrea</source>
        <translation>Eritrea</translation>
    </message>
    <message>
        <source>Spain</source>
        <translation>Spanien</translation>
    </message>
    <message>
        <source>Ethiopia</source>
        <translation>Äthiopien</translation>
    </message>
    <message>
        <source>Finland</source>
        <translation>Finnland</translation>
    </message>
    <message>
        <source>Fiji</source>
        <translation>Fidschi</translation>
    </message>
    <message>
        <source>Falkland Islands</source>
        <translation>Falklandinseln</translation>
    </message>
    <message>
        <source>Micronesia</source>
        <translation>Mikronesien</translation>
    </message>
    <message>
        <source>Faroe Islands</source>
        <translation>Färöer</translation>
    </message>
    <message>
        <source>France</source>
        <translation>Frankreich</translation>
    </message>
    <message>
        <source>Gabon</source>
        <translation>Gabun</translation>
    </message>
    <message>
        <source>United Kingdom</source>
        <translation>Vereinigtes Königreich</translation>
    </message>
    <message>
        <source>Grenada</source>
        <translation>Grenada</translation>
    </message>
    <message>
        <source>Georgia</source>
        <translation>Georgien</translation>
    </message>
    <message>
        <source>French Guiana</source>
        <translation>Französisch-Guayana</translation>
    </message>
    <message>
        <source>Guernsey</source>
        <translation>Guernsey</translation>
    </message>
    <message>
        <source>Ghana</source>
        <translation>Ghana</translation>
    </message>
    <message>
        <source>Gibraltar</source>
        <translation>Gibraltar</translation>
    </message>
    <message>
        <source>Greenland</source>
        <translation>Grönland</translation>
    </message>
    <message>
        <source>Gambia</source>
        <translation>Gambia</translation>
    </message>
    <message>
        <source>Guinea</source>
        <translation>Guinea</translation>
    </message>
    <message>
        <source>Guadeloupe</source>
        <translation>Guadeloupe</translation>
    </message>
    <message>
        <source>Equatorial Guinea</source>
        <translation>Äquatorialguinea</translation>
    </message>
    <message>
        <source>Greece</source>
        <translation>Griechenland</translation>
    </message>
    <message>
        <source>South Georgia &amp; South Sandwich Islands</source>
        <translation>Südgeorgien und die Südlichen Sandwichinseln</translation>
    </message>
    <message>
        <source>Guatemala</source>
        <translation>Guatemala</translation>
    </message>
    <message>
        <source>Guam</source>
        <translation>Guam</translation>
    </message>
    <message>
        <source>Guinea-Bissau</source>
        <translation>Guinea-Bissau</translation>
    </message>
    <message>
        <source>Guyana</source>
        <translation>Guyana</translation>
    </message>
    <message>
        <source>Hong Kong</source>
        <translation>Hongkong</translation>
    </message>
    <message>
        <source>Heard &amp; McDonald Islands</source>
        <translation>Heard und McDonaldinseln</translation>
    </message>
    <message>
        <source>Honduras</source>
        <translation>Honduras</translation>
    </message>
    <message>
        <source>Croatia</source>
        <translation>Kroatien</translation>
    </message>
    <message>
        <source>Haiti</source>
        <translation>Haiti</translation>
    </message>
    <message>
        <source>Hungary</source>
        <translation>Ungarn</translation>
    </message>
    <message>
        <source>Indonesia</source>
        <translation>Indonesien</translation>
    </message>
    <message>
        <source>Ireland</source>
        <translation>Irland</translation>
    </message>
    <message>
        <source>Israel</source>
        <translation>Israel</translation>
    </message>
    <message>
        <source>Isle of Man</source>
        <translation>Isle of Man</translation>
    </message>
    <message>
        <source>India</source>
        <translation>Indien</translation>
    </message>
    <message>
        <source>British Indian Ocean Territory</source>
        <translation>Britisches Territorium im Indischen Ozean</translation>
    </message>
    <message>
        <source>Iraq</source>
        <translation>Irak</translation>
    </message>
    <message>
        <source>Iran</source>
        <translation>Iran</translation>
    </message>
    <message>
        <source>Iceland</source>
        <translation>Island</translation>
    </message>
    <message>
        <source>Italy</source>
        <translation>Italien</translation>
    </message>
    <message>
        <source>Jersey</source>
        <translation>Jersey</translation>
    </message>
    <message>
        <source>Jamaica</source>
        <translation>Jamaika</translation>
    </message>
    <message>
        <source>Jordan</source>
        <translation>Jordanien</translation>
    </message>
    <message>
        <source>Japan</source>
        <translation>Japan</translation>
    </message>
    <message>
        <source>Kenya</source>
        <translation>Kenia</translation>
    </message>
    <message>
        <source>Kyrgyzstan</source>
        <translation>Kirgisistan</translation>
    </message>
    <message>
        <source>Cambodia</source>
        <translation>Kambodscha</translation>
    </message>
    <message>
        <source>Kiribati</source>
        <translation>Kiribati</translation>
    </message>
    <message>
        <source>Comoros</source>
        <translation>Komoren</translation>
    </message>
    <message>
        <source>St. Kitts &amp; Nevis</source>
        <translation>St. Kitts und Nevis</translation>
    </message>
    <message>
        <source>North Korea</source>
        <translation>Nordkorea</translation>
    </message>
    <message>
        <source>South Korea</source>
        <translation>Südkorea</translation>
    </message>
    <message>
        <source>Kuwait</source>
        <translation>Kuwait</translation>
    </message>
    <message>
        <source>Cayman Islands</source>
        <translation>Kaimaninseln</translation>
    </message>
    <message>
        <source>Kazakhstan</source>
        <translation>Kasachstan</translation>
    </message>
    <message>
        <source>Laos</source>
        <translation>Laos</translation>
    </message>
    <message>
        <source>Lebanon</source>
        <translation>Libanon</translation>
    </message>
    <message>
        <source>St. Lucia</source>
        <translation>St. Lucia</translation>
    </message>
    <message>
        <source>Liechtenstein</source>
        <translation>Liechtenstein</translation>
    </message>
    <message>
        <source>Sri Lanka</source>
        <translation>Sri Lanka</translation>
    </message>
    <message>
        <source>Liberia</source>
        <translation>Liberia</translation>
    </message>
    <message>
        <source>Lesotho</source>
        <translation>Lesotho</translation>
    </message>
    <message>
        <source>Lithuania</source>
        <translation>Litauen</translation>
    </message>
    <message>
        <source>Luxembourg</source>
        <translation>Luxemburg</translation>
    </message>
    <message>
        <source>Latvia</source>
        <translation>Lettland</translation>
    </message>
    <message>
        <source>Libya</source>
        <translation>Libyen</translation>
    </message>
    <message>
        <source>Morocco</source>
        <translation>Marokko</translation>
    </message>
    <message>
        <source>Monaco</source>
        <translation>Monaco</translation>
    </message>
    <message>
        <source>Moldova</source>
        <translation>Moldau</translation>
    </message>
    <message>
        <source>Montenegro</source>
        <translation>Montenegro</translation>
    </message>
    <message>
        <source>St. Martin</source>
        <translation>St. Martin</translation>
    </message>
    <message>
        <source>Madagascar</source>
        <translation>Madagaskar</translation>
    </message>
    <message>
        <source>Marshall Islands</source>
        <translation>Marshallinseln</translation>
    </message>
    <message>
        <source>North Macedonia</source>
        <translation>Nordmazedonien</translation>
    </message>
    <message>
        <source>Mali</source>
        <translation>Mali</translation>
    </message>
    <message>
        <source>Myanmar</source>
        <translation>Myanmar</translation>
    </message>
    <message>
        <source>Mongolia</source>
        <translation>Mongolei</translation>
    </message>
    <message>
        <source>Macao</source>
        <translation>Macau</translation>
    </message>
    <message>
        <source>Northern Mariana Islands</source>
        <translation>Nördliche Marianen</translation>
    </message>
    <message>
        <source>Martinique</source>
        <translation>Martinique</translation>
    </message>
    <message>
        <source>Mauritania</source>
        <translation>Mauretanien</translation>
    </message>
    <message>
        <source>Montserrat</source>
        <translation>Montserrat</translation>
    </message>
    <message>
        <source>Malta</source>
        <translation>Malta</translation>
    </message>
    <message>
        <source>Mauritius</source>
        <translation>Mauritius</translation>
    </message>
    <message>
        <source>Maldives</source>
        <translation>Malediven</translation>
    </message>
    <message>
        <source>Malawi</source>
        <translation>Malawi</translation>
    </message>
    <message>
        <source>Mexico</source>
        <translation>Mexiko</translation>
    </message>
    <message>
        <source>Malaysia</source>
        <translation>Malaysia</translation>
    </message>
    <message>
        <source>Mozambique</source>
        <translation>Mosambik</translation>
    </message>
    <message>
        <source>Namibia</source>
        <translation>Namibia</translation>
    </message>
    <message>
        <source>New Caledonia</source>
        <translation>Neukaledonien</translation>
    </message>
    <message>
        <source>Niger</source>
        <translation>Niger</translation>
    </message>
    <message>
        <source>Norfolk Island</source>
        <translation>Norfolkinsel</translation>
    </message>
    <message>
        <source>Nigeria</source>
        <translation>Nigeria</translation>
    </message>
    <message>
        <source>Nicaragua</source>
        <translation>Nicaragua</translation>
    </message>
    <message>
        <source>Netherlands</source>
        <translation>Niederlande</translation>
    </message>
    <message>
        <source>Norway</source>
        <translation>Norwegen</translation>
    </message>
    <message>
        <source>Nepal</source>
        <translation>Nepal</translation>
    </message>
    <message>
        <source>Nauru</source>
        <translation>Nauru</translation>
    </message>
    <message>
        <source>Niue</source>
        <translation>Niue</translation>
    </message>
    <message>
        <source>New Zealand</source>
        <translation>Neuseeland</translation>
    </message>
    <message>
        <source>Oman</source>
        <translation>Oman</translation>
    </message>
    <message>
        <source>Panama</source>
        <translation>Panama</translation>
    </message>
    <message>
        <source>Peru</source>
        <translation>Peru</translation>
    </message>
    <message>
        <source>French Polynesia</source>
        <translation>Französisch-Polynesien</translation>
    </message>
    <message>
        <source>Papua New Guinea</source>
        <translation>Papua-Neuguinea</translation>
    </message>
    <message>
        <source>Philippines</source>
        <translation>Philippinen</translation>
    </message>
    <message>
        <source>Pakistan</source>
        <translation>Pakistan</translation>
    </message>
    <message>
        <source>Poland</source>
        <translation>Polen</translation>
    </message>
    <message>
        <source>St. Pierre &amp; Miquelon</source>
        <translation>St. Pierre und Miquelon</translation>
    </message>
    <message>
        <source>Pitcairn Islands</source>
        <translation>Pitcairninseln</translation>
    </message>
    <message>
        <source>Puerto Rico</source>
        <translation>Puerto Rico</translation>
    </message>
    <message>
        <source>Palestine</source>
        <translation>Palästina</translation>
    </message>
    <message>
        <source>Portugal</source>
        <translation>Portugal</translation>
    </message>
    <message>
        <source>Palau</source>
        <translation>Palau</translation>
    </message>
    <message>
        <source>Paraguay</source>
        <translation>Paraguay</translation>
    </message>
    <message>
        <source>Qatar</source>
        <translation>Katar</translation>
    </message>
    <message>
        <source>Réunion</source>
        <translation>Réunion</translation>
    </message>
    <message>
        <source>Romania</source>
        <translation>Rumänien</translation>
    </message>
    <message>
        <source>Serbia</source>
        <translation>Serbien</translation>
    </message>
    <message>
        <source>Russia</source>
        <translation>Russland</translation>
    </message>
    <message>
        <source>Rwanda</source>
        <translation>Ruanda</translation>
    </message>
    <message>
        <source>Saudi Arabia</source>
        <translation>Saudi-Arabien</translation>
    </message>
    <message>
        <source>Solomon Islands</source>
        <translation>Salomonen</translation>
    </message>
    <message>
        <source>Seychelles</source>
        <translation>Seychellen</translation>
    </message>
    <message>
        <source>Sudan</source>
        <translation>Sudan</translation>
    </message>
    <message>
        <source>Sweden</source>
        <translation>Schweden</translation>
    </message>
    <message>
        <source>Singapore</source>
        <translation>Singapur</translation>
    </message>
    <message>
        <source>St. Helena</source>
        <translation>St. Helena</translation>
    </message>
    <message>
        <source>Slovenia</source>
        <translation>Slowenien</translation>
    </message>
    <message>
        <source>Svalbard &amp; Jan Mayen</source>
        <translation>Spitzbergen und Jan Mayen</translation>
    </message>
    <message>
        <source>Slovakia</source>
        <translation>Slowakei</translation>
    </message>
    <message>
        <source>Sierra Leone</source>
        <translation>Sierra Leone</translation>
    </message>
    <message>
        <source>San Marino</source>
        <translation>San Marino</translation>
    </message>
    <message>
        <source>Senegal</source>
        <translation>Senegal</translation>
    </message>
    <message>
        <source>Somalia</source>
        <translation>Somalia</translation>
    </message>
    <message>
        <source>Suriname</source>
        <translation>Suriname</translation>
    </message>
    <message>
        <source>South Sudan</source>
        <translation>Südsudan</translation>
    </message>
    <message>
        <source>São Tomé &amp; Príncipe</source>
        <translation>São Tomé und Príncipe</translation>
    </message>
    <message>
        <source>El Salvador</source>
        <translation>El Salvador</translation>
    </message>
    <message>
        <source>Sint Maarten</source>
        <translation>Sint Maarten</translation>
    </message>
    <message>
        <source>Syria</source>
        <translation>Syrien</translation>
    </message>
    <message>
        <source>Eswatini</source>
        <translation>Eswatini</translation>
    </message>
    <message>
        <source>Turks &amp; Caicos Islands</source>
        <translation>Turks- und Caicosinseln</translation>
    </message>
    <message>
        <source>Chad</source>
        <translation>Tschad</translation>
    </message>
    <message>
        <source>French Southern Territories</source>
        <translation>Französische Süd- und Antarktisgebiete</translation>
    </message>
    <message>
        <source>Togo</source>
        <translation>Togo</translation>
    </message>
    <message>
        <source>Thailand</source>
        <translation>Thailand</translation>
    </message>
    <message>
        <source>Tajikistan</source>
        <translation>Tadschikistan</translation>
    </message>
    <message>
        <source>Tokelau</source>
        <translation>Tokelau</translation>
    </message>
    <message>
        <source>Timor-Leste</source>
        <translation>Timor-Leste</translation>
    </message>
    <message>
        <source>Turkmenistan</source>
        <translation>Turkmenistan</translation>
    </message>
    <message>
        <source>Tunisia</source>
        <translation>Tunesien</translation>
    </message>
    <message>
        <source>Tonga</source>
        <translation>Tonga</translation>
    </message>
    <message>
        <source>Türkiye</source>
        <translation>Türkei</translation>
    </message>
    <message>
        <source>Trinidad &amp; Tobago</source>
        <translation>Trinidad und Tobago</translation>
    </message>
    <message>
        <source>Tuvalu</source>
        <translation>Tuvalu</translation>
    </message>
    <message>
        <source>Taiwan</source>
        <translation>Taiwan</translation>
    </message>
    <message>
        <source>Tanzania</source>
        <translation>Tansania</translation>
    </message>
    <message>
        <source>Ukraine</source>
        <translation>Ukraine</translation>
    </message>
    <message>
        <source>Uganda</source>
        <translation>Uganda</translation>
    </message>
    <message>
        <source>U.S. Outlying Islands</source>
        <translation>Amerikanische Überseeinseln</translation>
    </message>
    <message>
        <source>United States</source>
        <translation>Vereinigte Staaten</translation>
    </message>
    <message>
        <source>Uruguay</source>
        <translation>Uruguay</translation>
    </message>
    <message>
        <source>Uzbekistan</source>
        <translation>Usbekistan</translation>
    </message>
    <message>
        <source>Vatican City</source>
        <translation>Vatikanstadt</translation>
    </message>
    <message>
        <source>St. Vincent &amp; Grenadines</source>
        <translation>St. Vincent und die Grenadinen</translation>
    </message>
    <message>
        <source>Venezuela</source>
        <translation>Venezuela</translation>
    </message>
    <message>
        <source>British Virgin Islands</source>
        <translation>Britische Jungferninseln</translation>
    </message>
    <message>
        <source>U.S. Virgin Islands</source>
        <translation>Amerikanische Jungferninseln</translation>
    </message>
    <message>
        <source>Vietnam</source>
        <translation>Vietnam</translation>
    </message>
    <message>
        <source>Vanuatu</source>
        <translation>Vanuatu</translation>
    </message>
    <message>
        <source>Wallis &amp; Futuna</source>
        <translation>Wallis und Futuna</translation>
    </message>
    <message>
        <source>Samoa</source>
        <translation>Samoa</translation>
    </message>
    <message>
        <source>Yemen</source>
        <translation>Jemen</translation>
    </message>
    <message>
        <source>Mayotte</source>
        <translation>Mayotte</translation>
    </message>
    <message>
        <source>South Africa</source>
        <translation>Südafrika</translation>
    </message>
    <message>
        <source>Zambia</source>
        <translation>Sambia</translation>
    </message>
    <message>
        <source>Zimbabwe</source>
        <translation>Simbabwe</translation>
    </message>
</context>
<context>
    <name>CountryField</name>
    <message>
        <source>Choose a country</source>
        <translation>Land wählen</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>No country begins like that.</source>
        <translation>Kein Land beginnt so.</translation>
    </message>
</context>
<context>
    <name>CrashScreen</name>
    <message>
        <source>Crash report</source>
        <translation>Absturzbericht</translation>
    </message>
    <message>
        <source>Skipnest quit unexpectedly last time. This report would help to mend it.</source>
        <translation>Skipnest wurde zuletzt unerwartet beendet. Dieser Bericht würde helfen, den Fehler zu beheben.</translation>
    </message>
    <message>
        <source>Exactly this would be sent:</source>
        <translation>Genau das würde gesendet:</translation>
    </message>
    <message>
        <source>No file names, no texts and no keys of yours. Once you have sent one, later reports go without asking; the settings turn them off.</source>
        <translation>Keine Dateinamen, keine Texte und keine Tasten von dir. Nach dem ersten Bericht gehen weitere ohne Rückfrage ab; in den Einstellungen lässt sich das ausschalten.</translation>
    </message>
    <message>
        <source>Don&apos;t send</source>
        <translation>Nicht senden</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
</context>
<context>
    <name>DoneStep</name>
    <message>
        <source>All set</source>
        <translation>Alles bereit</translation>
    </message>
    <message>
        <source>Skipnest stays in the background. A click on its icon in the panel opens your list of shortcuts.</source>
        <translation>Skipnest läuft im Hintergrund. Ein Klick auf das Symbol in der Leiste öffnet die Liste der Kürzel.</translation>
    </message>
    <message>
        <source>Skipnest stays in the background, with an icon in the panel. Where a click on it does nothing, start Skipnest again: that opens your list of shortcuts.</source>
        <translation>Skipnest läuft im Hintergrund, mit einem Symbol in der Leiste. Bewirkt ein Klick darauf nichts, Skipnest einfach noch einmal starten: Das öffnet die Liste der Kürzel.</translation>
    </message>
    <message>
        <source>Skipnest stays in the background. This desktop has no place for its icon: start Skipnest again to open its list.</source>
        <translation>Skipnest läuft im Hintergrund. Dieser Desktop hat keinen Platz für das Symbol: Skipnest noch einmal zu starten öffnet die Liste.</translation>
    </message>
    <message>
        <source>Your shortcut</source>
        <translation>Das erste Kürzel</translation>
    </message>
    <message>
        <source>Start Skipnest at login</source>
        <translation>Skipnest bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Your keys work as soon as you have logged in.</source>
        <translation>Die Kürzel wirken dann gleich nach der Anmeldung.</translation>
    </message>
    <message>
        <source>Send anonymous usage counts</source>
        <translation>Anonyme Nutzungszahlen senden</translation>
    </message>
    <message>
        <source>Only if you like: the version, a random number for this installation and how far the first steps got. Never names or texts.</source>
        <translation>Nur wenn du magst: die Version, eine Zufallszahl für diese Installation und wie weit die ersten Schritte kamen. Nie Namen oder Texte.</translation>
    </message>
</context>
<context>
    <name>EditorScreen</name>
    <message>
        <source>Edit shortcut</source>
        <translation>Kürzel bearbeiten</translation>
    </message>
    <message>
        <source>New shortcut</source>
        <translation>Neues Kürzel</translation>
    </message>
    <message>
        <source>Target: %1</source>
        <translation>Ziel: %1</translation>
    </message>
    <message>
        <source>Locate again</source>
        <translation>Neu suchen</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>Nothing is there any more. Locate it again: the shortcut keeps its keys.</source>
        <translation>Dort ist nichts mehr. Das Ziel neu suchen: Das Kürzel behält seine Tasten.</translation>
    </message>
    <message>
        <source>Open that shortcut</source>
        <translation>Dieses Kürzel öffnen</translation>
    </message>
    <message>
        <source>Imported – confirm before it can run</source>
        <translation>Importiert – wirkt erst nach Bestätigung</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>Jump with</source>
        <translation>Springen mit</translation>
    </message>
    <message>
        <source>Hide with</source>
        <translation>Ausblenden mit</translation>
    </message>
    <message>
        <source>No key</source>
        <translation>Keine Taste</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
</context>
<context>
    <name>EmptyList</name>
    <message>
        <source>No shortcut is called “%1”</source>
        <translation>Kein Kürzel heißt „%1“</translation>
    </message>
    <message>
        <source>One key for each thing you use</source>
        <translation>Eine Taste für alles, was oft gebraucht wird</translation>
    </message>
    <message>
        <source>Pick an application, a file or a folder, press the keys for it, and jump there from anywhere.</source>
        <translation>Ein Programm, eine Datei oder einen Ordner wählen, die Tasten dafür drücken und von überall dorthin springen.</translation>
    </message>
    <message>
        <source>Add “%1”</source>
        <translation>„%1“ hinzufügen</translation>
    </message>
    <message>
        <source>Add your first shortcut</source>
        <translation>Erstes Kürzel hinzufügen</translation>
    </message>
    <message>
        <source>or drop a file or folder here</source>
        <translation>oder eine Datei oder einen Ordner hierher ziehen</translation>
    </message>
</context>
<context>
    <name>ExportScreen</name>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Pick a folder. This file is written there:</source>
        <translation>Einen Ordner wählen. Diese Datei wird dort angelegt:</translation>
    </message>
    <message>
        <source>Copy path</source>
        <translation>Pfad kopieren</translation>
    </message>
</context>
<context>
    <name>FeedbackScreen</name>
    <message>
        <source>Feedback</source>
        <translation>Rückmeldung</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>What should be better, or what went wrong?</source>
        <translation>Was sollte besser sein, oder was ging schief?</translation>
    </message>
    <message>
        <source>E-mail address, if you would like an answer</source>
        <translation>E-Mail-Adresse, falls eine Antwort gewünscht ist</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>Copy text</source>
        <translation>Text kopieren</translation>
    </message>
    <message>
        <source>A message is needed.</source>
        <translation>Eine Nachricht fehlt noch.</translation>
    </message>
    <message>
        <source>This build can&apos;t send feedback. Copy the text and send it the way you like.</source>
        <translation>Diese Fassung kann keine Rückmeldung senden. Kopiere den Text und schicke ihn, wie du möchtest.</translation>
    </message>
</context>
<context>
    <name>FirstShortcutStep</name>
    <message>
        <source>The first shortcut</source>
        <translation>Das erste Kürzel</translation>
    </message>
    <message>
        <source>Choose what you open most often. A free key is proposed for it.</source>
        <translation>Auswählen, was am häufigsten geöffnet wird. Eine freie Taste wird dafür vorgeschlagen.</translation>
    </message>
    <message>
        <source>Search for a name</source>
        <translation>Nach einem Namen suchen</translation>
    </message>
    <message>
        <source>Search applications, files and folders</source>
        <translation>Programme, Dateien und Ordner suchen</translation>
    </message>
    <message>
        <source>Targets</source>
        <translation>Ziele</translation>
    </message>
    <message>
        <source>Searching…</source>
        <translation>Wird gesucht …</translation>
    </message>
    <message>
        <source>Type a part of a name above.</source>
        <translation>Oben einen Teil des Namens eingeben.</translation>
    </message>
    <message>
        <source>Nothing is called that.</source>
        <translation>So heißt hier nichts.</translation>
    </message>
    <message>
        <source>Target</source>
        <translation>Ziel</translation>
    </message>
    <message>
        <source>Nothing chosen yet</source>
        <translation>Noch nichts gewählt</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>Taste</translation>
    </message>
    <message>
        <source>Press keys of your choice</source>
        <translation>Beliebige Tasten drücken</translation>
    </message>
    <message>
        <source>Any combination with Ctrl, Alt, Shift or Super will do.</source>
        <translation>Jede Kombination mit Strg, Alt, Umschalt oder Super ist möglich.</translation>
    </message>
    <message>
        <source>%1 has the key %2. Choose another target, or go on.</source>
        <translation>%1 hat jetzt die Taste %2. Ein weiteres Ziel wählen oder weitergehen.</translation>
    </message>
</context>
<context>
    <name>FoundTargetRow</name>
    <message>
        <source>%1, has a shortcut</source>
        <translation>%1, hat ein Kürzel</translation>
    </message>
    <message>
        <source>has a shortcut</source>
        <translation>hat ein Kürzel</translation>
    </message>
</context>
<context>
    <name>GestureStep</name>
    <message>
        <source>The voice gesture</source>
        <translation>Die Sprachgeste</translation>
    </message>
    <message>
        <source>A key tapped twice, quickly, will start the voice search. Voice arrives with a later version; the gesture can be chosen now.</source>
        <translation>Eine Taste, zweimal kurz angetippt, wird die Sprachsuche starten. Die Sprachsuche kommt mit einer späteren Version; die Geste kann jetzt schon gewählt werden.</translation>
    </message>
    <message>
        <source>No gesture: the voice search will have a key of its own.</source>
        <translation>Keine Geste: Die Sprachsuche bekommt eine eigene Taste.</translation>
    </message>
    <message>
        <source>One… and once more.</source>
        <translation>Eins … und noch einmal.</translation>
    </message>
    <message>
        <source>That is it.</source>
        <translation>Genau so.</translation>
    </message>
    <message>
        <source>A little shorter: let the key go at once.</source>
        <translation>Etwas kürzer: die Taste gleich wieder loslassen.</translation>
    </message>
    <message>
        <source>Almost. The second tap has to come sooner.</source>
        <translation>Fast. Das zweite Tippen muss früher kommen.</translation>
    </message>
    <message>
        <source>Tap the same %1 key twice, left or right.</source>
        <translation>Zweimal dieselbe %1-Taste antippen, links oder rechts.</translation>
    </message>
    <message>
        <source>Another key came in between. Try again with %1 alone.</source>
        <translation>Eine andere Taste kam dazwischen. Noch einmal, nur mit %1.</translation>
    </message>
    <message>
        <source>Try it: tap %1 twice.</source>
        <translation>Ausprobieren: %1 zweimal antippen.</translation>
    </message>
    <message>
        <source>Key for the voice gesture</source>
        <translation>Taste für die Sprachgeste</translation>
    </message>
    <message>
        <source>The gesture cannot be used here. %1 %2</source>
        <translation>Die Geste ist hier nicht möglich. %1 %2</translation>
    </message>
</context>
<context>
    <name>ImportScreen</name>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Pick a Skipnest export - files are named like “Skipnest-Export-2026-07-24.json”.</source>
        <translation>Einen Skipnest-Export wählen – die Dateien heißen etwa „Skipnest-Export-2026-07-24.json“.</translation>
    </message>
    <message>
        <source>No export files found yet - export one first, or type a file name.</source>
        <translation>Noch keine Exportdateien gefunden – zuerst eine exportieren oder einen Dateinamen eingeben.</translation>
    </message>
    <message>
        <source>File name or path, or drop a file here</source>
        <translation>Dateiname oder Pfad, oder eine Datei hierher ziehen</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>Ansehen</translation>
    </message>
    <message>
        <source>Look into this file</source>
        <translation>Diese Datei ansehen</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>KeyLedgerPage</name>
    <message>
        <source>Find a key or a program</source>
        <translation>Taste oder Programm finden</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>No key is known yet.</source>
        <translation>Noch ist keine Taste bekannt.</translation>
    </message>
    <message>
        <source>No key has these words.</source>
        <translation>Auf keine Taste passt das.</translation>
    </message>
</context>
<context>
    <name>ListBannerLine</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>LocationCheck</name>
    <message>
        <source>Skipnest is running from a temporary macOS location, so permissions you grant won&apos;t stick. Moving it to Applications fixes this for good.</source>
        <translation>Skipnest läuft an einem vorläufigen Ort von macOS, daher bleiben erteilte Berechtigungen nicht erhalten. In „Programme“ bewegt, ist das dauerhaft behoben.</translation>
    </message>
    <message>
        <source>Skipnest is running from the downloaded disk image. macOS forgets permissions granted from here - move it to Applications and start it there.</source>
        <translation>Skipnest läuft vom geladenen Image. macOS vergisst Berechtigungen, die von hier erteilt werden – in „Programme“ bewegen und dort starten.</translation>
    </message>
</context>
<context>
    <name>MenuBarShell</name>
    <message>
        <source>Nothing was dropped.</source>
        <translation>Es wurde nichts abgelegt.</translation>
    </message>
    <message>
        <source>“%1” is not a file or folder on this computer.</source>
        <translation>„%1“ ist keine Datei und kein Ordner auf diesem Computer.</translation>
    </message>
    <message>
        <source>“%1” is not there any more.</source>
        <translation>„%1“ ist nicht mehr da.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Capture</source>
        <translation>Erfassen</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Check for Updates</source>
        <translation>Nach Updates suchen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>This cannot get a key</source>
        <translation>Das kann keine Taste bekommen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>MessageLine</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>MomentLine</name>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>Moments</name>
    <message>
        <source>Your first jump! 🎉</source>
        <translation>Dein erster Sprung! 🎉</translation>
    </message>
    <message>
        <source>One key, and you were there. That&apos;s the whole magic.</source>
        <translation>Eine Taste, und du warst da. Das ist der ganze Zauber.</translation>
    </message>
    <message>
        <source>You&apos;re on the world board! 🌍</source>
        <translation>Du stehst auf der Weltrangliste! 🌍</translation>
    </message>
    <message>
        <source>The Global Jump Challenge counts your jumps now - rank #%1</source>
        <translation>Die Global Jump Challenge zählt jetzt deine Sprünge - Platz %1</translation>
    </message>
    <message>
        <source>Top 100 worldwide! 🌍</source>
        <translation>Top 100 weltweit! 🌍</translation>
    </message>
    <message>
        <source>Rank #%1 of %2 challengers.</source>
        <translation>Platz %1 unter %2 Teilnehmern.</translation>
    </message>
    <message>
        <source>Top 10 in the world! 🏆</source>
        <translation>Top 10 der Welt! 🏆</translation>
    </message>
    <message>
        <source>Rank #%1 of %2 - elite jumper.</source>
        <translation>Platz %1 von %2 - Spitzenklasse.</translation>
    </message>
    <message>
        <source>You&apos;re on the podium! 🏅</source>
        <translation>Du stehst auf dem Treppchen! 🏅</translation>
    </message>
    <message>
        <source>Rank #%1 worldwide.</source>
        <translation>Platz %1 weltweit.</translation>
    </message>
    <message>
        <source>#1 in the world! 🥇</source>
        <translation>Platz 1 der Welt! 🥇</translation>
    </message>
    <message>
        <source>Nobody on the planet jumps more. Respect.</source>
        <translation>Niemand auf der Welt springt mehr. Respekt.</translation>
    </message>
    <message>
        <source>And away again</source>
        <translation>Und wieder weg</translation>
    </message>
    <message>
        <source>Add ⇧ to any jump key and the window tucks away again. In, out, one hand.</source>
        <translation>Mit ⇧ zu einer Sprungtaste verschwindet das Fenster wieder. Hin, weg, mit einer Hand.</translation>
    </message>
    <message>
        <source>A key in two taps</source>
        <translation>Mit zweimal Tippen eine Taste</translation>
    </message>
    <message>
        <source>Double-tap ⌃ while any app is in front, then press a letter - saved. Same double-tap, then ⌫, removes it again.</source>
        <translation>Tippe zweimal ⌃, während ein Programm vorn ist, dann einen Buchstaben - gespeichert. Wieder zweimal, dann ⌫, entfernt es.</translation>
    </message>
    <message>
        <source>Drop it in</source>
        <translation>Einfach ablegen</translation>
    </message>
    <message>
        <source>Drop any file or folder onto the menu-bar icon to give it a key.</source>
        <translation>Lege eine Datei oder einen Ordner auf dem Symbol in der Leiste ab, um eine Taste dafür zu vergeben.</translation>
    </message>
    <message>
        <source>Say where to</source>
        <translation>Sag, wohin</translation>
    </message>
    <message>
        <source>Double-tap ⌘ and speak - &quot;Downloads&quot;, &quot;Slack&quot;, anywhere you want to go.</source>
        <translation>Tippe zweimal ⌘ und sprich - „Downloads“, „Slack“, wohin du willst.</translation>
    </message>
    <message>
        <source>%1 jumps! 🎉</source>
        <translation>%1 Sprünge! 🎉</translation>
    </message>
    <message>
        <source>That&apos;s %1 of hunting you never did.</source>
        <translation>Das sind %1 Sucherei, die du dir gespart hast.</translation>
    </message>
    <message>
        <source>Reclaimed from window hunting - and counting.</source>
        <translation>Der Fenstersuche abgewonnen - und es werden mehr.</translation>
    </message>
    <message>
        <source>%1. Nice week.</source>
        <translation>%1. Gute Woche.</translation>
    </message>
    <message>
        <source>%1 jumps this week ⚡</source>
        <translation>%1 Sprünge diese Woche ⚡</translation>
    </message>
    <message>
        <source>Good to know</source>
        <translation>Gut zu wissen</translation>
    </message>
    <message>
        <source>Backspace</source>
        <translation>Rücktaste</translation>
    </message>
    <message numerus="yes">
        <source>%n hours saved! 🎉</source>
        <translation>
            <numerusform>%n Stunde gespart! 🎉</numerusform>
            <numerusform>%n Stunden gespart! 🎉</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Onboarding</name>
    <message>
        <source>Welcome to Skipnest</source>
        <translation>Willkommen bei Skipnest</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Finish</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Save and go on</source>
        <translation>Speichern und weiter</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Weiter</translation>
    </message>
</context>
<context>
    <name>ProgressMark</name>
    <message>
        <source>Step %1 of %2</source>
        <translation>Schritt %1 von %2</translation>
    </message>
</context>
<context>
    <name>RecorderWording</name>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>New Tab</source>
        <translation>Neuer Tab</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Neu laden</translation>
    </message>
    <message>
        <source>Please include at least one modifier key (%1)</source>
        <translation>Bitte mindestens eine Sondertaste dazunehmen (%1)</translation>
    </message>
    <message>
        <source>%1 is a system shortcut and cannot be used.</source>
        <translation>%1 gehört dem System und kann nicht verwendet werden.</translation>
    </message>
    <message>
        <source>%1 is already assigned to &quot;%2&quot;</source>
        <translation>%1 ist schon an „%2“ vergeben</translation>
    </message>
    <message>
        <source>%1 is already used by another program.</source>
        <translation>%1 wird schon von einem anderen Programm benutzt.</translation>
    </message>
    <message>
        <source>%1 is already used by %2.</source>
        <translation>%1 wird schon von %2 benutzt.</translation>
    </message>
    <message>
        <source>%1 is already used by %2 (%3).</source>
        <translation>%1 wird schon von %2 benutzt (%3).</translation>
    </message>
    <message>
        <source>Another program holds the keyboard, so no keys can be recorded. Close its menu or dialog and try again.</source>
        <translation>Ein anderes Programm hält die Tastatur, daher lassen sich keine Tasten aufnehmen. Sein Menü oder seinen Dialog schließen und noch einmal versuchen.</translation>
    </message>
    <message>
        <source>%1 belongs to %2: no press of it reaches any program, so this shortcut would never fire.</source>
        <translation>%1 gehört %2: Kein Druck darauf erreicht ein Programm, dieses Kürzel käme nie an.</translation>
    </message>
    <message>
        <source>%1 is in the settings of %2 too, which may act on it instead.</source>
        <translation>%1 steht auch in den Einstellungen von %2 und könnte dort wirken statt hier.</translation>
    </message>
    <message>
        <source>%1 is in the settings of %2 too (%3), which may act on it instead.</source>
        <translation>%1 steht auch in den Einstellungen von %2 (%3) und könnte dort wirken statt hier.</translation>
    </message>
    <message>
        <source>%1 hides “%2” now and will no longer do so.</source>
        <translation>%1 blendet jetzt „%2“ aus und wird es nicht mehr tun.</translation>
    </message>
    <message>
        <source>%1 goes to the next window now and will no longer do so.</source>
        <translation>%1 geht jetzt zum nächsten Fenster und wird es nicht mehr tun.</translation>
    </message>
    <message>
        <source>%1 goes to the previous window now and will no longer do so.</source>
        <translation>%1 geht jetzt zum vorigen Fenster und wird es nicht mehr tun.</translation>
    </message>
    <message>
        <source>%1 starts the voice search now and will no longer do so.</source>
        <translation>%1 startet jetzt die Sprachsuche und wird es nicht mehr tun.</translation>
    </message>
    <message>
        <source>%1 opens “%2” now and will no longer do so.</source>
        <translation>%1 öffnet jetzt „%2“ und wird es nicht mehr tun.</translation>
    </message>
    <message>
        <source>%1 is “%2” in most apps. A global shortcut would override it everywhere - a shortcut with Alt or Super is safer.</source>
        <translation>%1 ist in den meisten Programmen „%2“. Ein Kürzel ginge überall vor – mit Alt oder Super ist es sicherer.</translation>
    </message>
    <message>
        <source>%1 is “%2” in most apps. A global shortcut would override it everywhere - a Control (⌃) or Option (⌥) shortcut is safer.</source>
        <translation>%1 ist in den meisten Programmen „%2“. Ein Kürzel ginge überall vor – mit Control (⌃) oder Option (⌥) ist es sicherer.</translation>
    </message>
</context>
<context>
    <name>ScreenPage</name>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>SettingRow</name>
    <message>
        <source>Use default</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>%1: use the default</source>
        <translation>%1: auf die Vorgabe zurücksetzen</translation>
    </message>
</context>
<context>
    <name>Settings</name>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Skipnest</source>
        <translation>Skipnest</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Automatic (your language + English)</source>
        <translation>Automatisch (eigene Sprache + Englisch)</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Kürzel</translation>
    </message>
    <message>
        <source>Window switcher</source>
        <translation>Fensterwechsler</translation>
    </message>
    <message>
        <source>Quick capture</source>
        <translation>Schnellerfassung</translation>
    </message>
    <message>
        <source>Voice</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Privatsphäre</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>Aussehen</translation>
    </message>
    <message>
        <source>The colours of all windows of Skipnest.</source>
        <translation>Die Farben aller Fenster von Skipnest.</translation>
    </message>
    <message>
        <source>Icon</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>The drawing in the menu bar or tray.</source>
        <translation>Die Zeichnung in der Menüleiste oder im Infobereich.</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Skipnest starts when you log in, without a window.</source>
        <translation>Skipnest startet mit der Anmeldung, ohne Fenster.</translation>
    </message>
    <message>
        <source>Modifier keys as ⌃⌥⇧⌘</source>
        <translation>Sondertasten als ⌃⌥⇧⌘</translation>
    </message>
    <message>
        <source>Keys are shown as glyphs in place of Ctrl, Alt, Shift, Super.</source>
        <translation>Tasten erscheinen als Zeichen statt als Strg, Alt, Umschalt, Super.</translation>
    </message>
    <message>
        <source>Hide with one more key</source>
        <translation>Ausblenden mit einer Taste mehr</translation>
    </message>
    <message>
        <source>Holding the hide key too makes a shortcut hide its application.</source>
        <translation>Mit der Ausblendtaste zusammen blendet ein Kürzel sein Programm aus.</translation>
    </message>
    <message>
        <source>Hide key</source>
        <translation>Ausblendtaste</translation>
    </message>
    <message>
        <source>The key that is held in addition to hide.</source>
        <translation>Die Taste, die zum Ausblenden dazukommt.</translation>
    </message>
    <message>
        <source>Step through windows</source>
        <translation>Durch Fenster gehen</translation>
    </message>
    <message>
        <source>Two more shortcuts go through the windows of the application in front.</source>
        <translation>Zwei weitere Kürzel gehen durch die Fenster des vorderen Programms.</translation>
    </message>
    <message>
        <source>Next window</source>
        <translation>Nächstes Fenster</translation>
    </message>
    <message>
        <source>The shortcut for the next window.</source>
        <translation>Das Kürzel für das nächste Fenster.</translation>
    </message>
    <message>
        <source>Previous window</source>
        <translation>Voriges Fenster</translation>
    </message>
    <message>
        <source>The shortcut for the window before.</source>
        <translation>Das Kürzel für das Fenster davor.</translation>
    </message>
    <message>
        <source>The shortcut of the application in front opens a bar with its windows.</source>
        <translation>Das Kürzel des vorderen Programms öffnet eine Leiste mit seinen Fenstern.</translation>
    </message>
    <message>
        <source>Precise switching</source>
        <translation>Genaues Wechseln</translation>
    </message>
    <message>
        <source>Takes a little longer to raise exactly the window chosen.</source>
        <translation>Braucht etwas länger und holt genau das gewählte Fenster nach vorn.</translation>
    </message>
    <message>
        <source>Browser tabs</source>
        <translation>Browser-Tabs</translation>
    </message>
    <message>
        <source>In a browser the bar lists the tabs of all its windows.</source>
        <translation>In einem Browser zeigt die Leiste die Tabs aller Fenster.</translation>
    </message>
    <message>
        <source>Tapping Ctrl twice gives a shortcut to what is in front of you.</source>
        <translation>Zweimal Strg antippen gibt dem, was vorn ist, ein Kürzel.</translation>
    </message>
    <message>
        <source>Say where to go: an application, a file, a window or a tab.</source>
        <translation>Sagen, wohin: zu einem Programm, einer Datei, einem Fenster oder Tab.</translation>
    </message>
    <message>
        <source>Voice shortcut</source>
        <translation>Kürzel für Sprache</translation>
    </message>
    <message>
        <source>The shortcut that starts and stops listening.</source>
        <translation>Das Kürzel, das das Zuhören startet und beendet.</translation>
    </message>
    <message>
        <source>Double tap</source>
        <translation>Doppeltes Antippen</translation>
    </message>
    <message>
        <source>Tapping this key twice starts listening too.</source>
        <translation>Diese Taste zweimal anzutippen startet das Zuhören auch.</translation>
    </message>
    <message>
        <source>Spoken language</source>
        <translation>Gesprochene Sprache</translation>
    </message>
    <message>
        <source>The language that is listened for.</source>
        <translation>Die Sprache, die erwartet wird.</translation>
    </message>
    <message>
        <source>Tidy up dictated messages</source>
        <translation>Diktierte Nachrichten glätten</translation>
    </message>
    <message>
        <source>Slips of the tongue are put right before a message is typed.</source>
        <translation>Versprecher werden berichtigt, bevor eine Nachricht getippt wird.</translation>
    </message>
    <message>
        <source>Words to know</source>
        <translation>Bekannte Wörter</translation>
    </message>
    <message>
        <source>Names and words that recognition should expect.</source>
        <translation>Namen und Wörter, mit denen die Erkennung rechnen soll.</translation>
    </message>
    <message>
        <source>Heard and meant</source>
        <translation>Gehört und gemeint</translation>
    </message>
    <message>
        <source>What is often misheard, and what it is read as instead.</source>
        <translation>Was oft falsch verstanden wird, und wie es stattdessen zu lesen ist.</translation>
    </message>
    <message>
        <source>Send crash reports</source>
        <translation>Absturzberichte senden</translation>
    </message>
    <message>
        <source>Default: %1</source>
        <translation>Vorgabe: %1</translation>
    </message>
    <message>
        <source>on</source>
        <translation>an</translation>
    </message>
    <message>
        <source>off</source>
        <translation>aus</translation>
    </message>
    <message>
        <source>Less motion</source>
        <translation>Weniger Bewegung</translation>
    </message>
    <message>
        <source>Nothing slides or fades; it is there at once.</source>
        <translation>Nichts gleitet oder blendet ein; es ist gleich da.</translation>
    </message>
    <message>
        <source>After a crash the place in the program is sent, and nothing of yours. You see the first report before it goes.</source>
        <translation>Nach einem Absturz wird die Stelle im Programm gesendet, und nichts von dir. Den ersten Bericht siehst du vorher.</translation>
    </message>
    <message>
        <source>Send anonymous usage counts</source>
        <translation>Anonyme Nutzungszahlen senden</translation>
    </message>
    <message>
        <source>Version, a random number for this installation, your language, how far the first steps got, and whether a spoken jump hit. Never names or texts.</source>
        <translation>Version, eine Zufallszahl für diese Installation, deine Sprache, wie weit die ersten Schritte kamen und ob ein gesprochener Sprung traf. Nie Namen oder Texte.</translation>
    </message>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
    <message>
        <source>Pictures of windows</source>
        <translation>Bilder der Fenster</translation>
    </message>
    <message>
        <source>The bar shows what is in each window. Pictures stay in memory; switched off, none is taken.</source>
        <translation>Die Leiste zeigt, was in jedem Fenster ist. Bilder bleiben im Speicher; ausgeschaltet wird keines gemacht.</translation>
    </message>
    <message>
        <source>Language model</source>
        <translation>Sprachmodell</translation>
    </message>
    <message>
        <source>The address of a server on this computer that is asked what a phrase means (llama.cpp, Ollama). Empty: none is asked.</source>
        <translation>Die Adresse eines Servers auf diesem Rechner, der gefragt wird, was ein Satz bedeutet (llama.cpp, Ollama). Leer: Es wird keiner gefragt.</translation>
    </message>
    <message>
        <source>Name of the model</source>
        <translation>Name des Modells</translation>
    </message>
    <message>
        <source>For servers that have several.</source>
        <translation>Für Server, die mehrere haben.</translation>
    </message>
    <message>
        <source>Patience with the model</source>
        <translation>Geduld mit dem Modell</translation>
    </message>
    <message>
        <source>After this long a phrase is understood without it.</source>
        <translation>Nach dieser Zeit wird ein Satz ohne das Modell verstanden.</translation>
    </message>
    <message>
        <source>Always ask the model</source>
        <translation>Immer das Modell fragen</translation>
    </message>
    <message>
        <source>Also about phrases whose meaning is plain.</source>
        <translation>Auch bei Sätzen, deren Bedeutung klar ist.</translation>
    </message>
    <message>
        <source>A model on another computer</source>
        <translation>Ein Modell auf einem anderen Rechner</translation>
    </message>
    <message>
        <source>What you say is sent there. Off: only this computer is ever asked.</source>
        <translation>Was du sagst, wird dorthin geschickt. Aus: Gefragt wird nur dieser Rechner.</translation>
    </message>
    <message>
        <source>Folders with contacts</source>
        <translation>Ordner mit Kontakten</translation>
    </message>
    <message>
        <source>Folders of vCard files besides the usual ones, with : between them.</source>
        <translation>Ordner mit vCard-Dateien außer den üblichen, mit : dazwischen.</translation>
    </message>
</context>
<context>
    <name>SettingsScreen</name>
    <message>
        <source>Keys</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Find a setting</source>
        <translation>Einstellung finden</translation>
    </message>
    <message>
        <source>No setting has these words.</source>
        <translation>Auf keine Einstellung passt das.</translation>
    </message>
    <message>
        <source>Who has which key</source>
        <translation>Wer welche Taste hat</translation>
    </message>
    <message>
        <source>Every shortcut that Skipnest has, was refused, or that the desktop keeps for itself.</source>
        <translation>Jede Taste, die Skipnest hat, die verweigert wurde oder die der Desktop für sich behält.</translation>
    </message>
    <message>
        <source>Show all keys</source>
        <translation>Alle Tasten zeigen</translation>
    </message>
    <message>
        <source>🌍 Global Jump Challenge</source>
        <translation>🌍 Global Jump Challenge</translation>
    </message>
    <message>
        <source>Put your jumps on the world leaderboard - anonymous, just a name and a flag.</source>
        <translation>Bring deine Sprünge auf die Weltrangliste - anonym, nur ein Name und eine Flagge.</translation>
    </message>
    <message>
        <source>Sends only: name, flag, jumps, minutes, streak.</source>
        <translation>Sendet nur: Name, Flagge, Sprünge, Minuten, Serie.</translation>
    </message>
    <message>
        <source>Open the challenge</source>
        <translation>Challenge öffnen</translation>
    </message>
    <message>
        <source>Browser tabs</source>
        <translation>Browser-Tabs</translation>
    </message>
    <message>
        <source>Tabs in the switcher</source>
        <translation>Tabs im Fensterwechsler</translation>
    </message>
    <message>
        <source>The bar of a browser shows its tabs once it has Skipnest&apos;s extension.</source>
        <translation>Die Leiste eines Browsers zeigt seine Tabs, sobald er die Erweiterung von Skipnest hat.</translation>
    </message>
    <message>
        <source>Set up browsers</source>
        <translation>Browser einrichten</translation>
    </message>
</context>
<context>
    <name>ShareCard</name>
    <message>
        <source>Share</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>A picture of this week&apos;s figures. It is made here, and no name of yours is on it.</source>
        <translation>Ein Bild mit den Zahlen dieser Woche. Es entsteht hier, und kein Name von dir steht darauf.</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Copy picture</source>
        <translation>Bild kopieren</translation>
    </message>
    <message>
        <source>Copy link</source>
        <translation>Link kopieren</translation>
    </message>
</context>
<context>
    <name>ShortcutListScreen</name>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Feedback</source>
        <translation>Rückmeldung</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filtern</translation>
    </message>
    <message>
        <source>Shortcuts</source>
        <translation>Kürzel</translation>
    </message>
</context>
<context>
    <name>ShortcutRow</name>
    <message>
        <source>Add a key</source>
        <translation>Taste geben</translation>
    </message>
    <message>
        <source>Confirm</source>
        <translation>Bestätigen</translation>
    </message>
    <message>
        <source>Jump to %1</source>
        <translation>Zu %1 springen</translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>%1 bearbeiten</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
</context>
<context>
    <name>Statistics</name>
    <message numerus="yes">
        <source>%n-day streak 🔥</source>
        <translation>
            <numerusform>%n Tag in Serie 🔥</numerusform>
            <numerusform>%n Tage in Serie 🔥</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>jumps this week</source>
        <translation>
            <numerusform>Sprung diese Woche</numerusform>
            <numerusform>Sprünge diese Woche</numerusform>
        </translation>
    </message>
    <message>
        <source>d MMMM yyyy</source>
        <comment>a day as QDate formats it</comment>
        <translation>d. MMMM yyyy</translation>
    </message>
    <message numerus="yes">
        <source>%Ln jumps this week</source>
        <translation>
            <numerusform>%Ln Sprung diese Woche</numerusform>
            <numerusform>%Ln Sprünge diese Woche</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days, keep it alive today</source>
        <translation>
            <numerusform>%n Tag, heute weiter so</numerusform>
            <numerusform>%n Tage, heute weiter so</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 saved</source>
        <translation>%1 gespart</translation>
    </message>
</context>
<context>
    <name>StatisticsCard</name>
    <message>
        <source>Shows your jumps</source>
        <translation>Zeigt deine Sprünge</translation>
    </message>
</context>
<context>
    <name>StatisticsScreen</name>
    <message>
        <source>Your jumps</source>
        <translation>Deine Sprünge</translation>
    </message>
    <message>
        <source>saved this week</source>
        <translation>gespart diese Woche</translation>
    </message>
    <message>
        <source>Week by week</source>
        <translation>Woche für Woche</translation>
    </message>
    <message>
        <source>Show the board</source>
        <translation>Zur Rangliste</translation>
    </message>
    <message>
        <source>Take a look</source>
        <translation>Ansehen</translation>
    </message>
    <message>
        <source>Most used</source>
        <translation>Am häufigsten</translation>
    </message>
</context>
<context>
    <name>SwitcherBar</name>
    <message>
        <source>%1, %2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>Type to filter every tab…</source>
        <translation>Tippen, um alle Tabs zu filtern …</translation>
    </message>
    <message>
        <source>Type to filter windows…</source>
        <translation>Tippen, um Fenster zu filtern …</translation>
    </message>
    <message>
        <source>No tab matches “%1”</source>
        <translation>Kein Tab passt zu „%1“</translation>
    </message>
    <message>
        <source>No window matches “%1”</source>
        <translation>Kein Fenster passt zu „%1“</translation>
    </message>
    <message numerus="yes">
        <source>%n matches</source>
        <translation>
            <numerusform>%n Treffer</numerusform>
            <numerusform>%n Treffer</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n windows</source>
        <translation>
            <numerusform>%n Fenster</numerusform>
            <numerusform>%n Fenster</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n tabs</source>
        <translation>
            <numerusform>%n Tab</numerusform>
            <numerusform>%n Tabs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TargetSearchField</name>
    <message>
        <source>Name of an application, file or folder</source>
        <translation>Name eines Programms, einer Datei oder eines Ordners</translation>
    </message>
    <message>
        <source>Search in</source>
        <translation>Suchen in</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Everything</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Found</source>
        <translation>Gefunden</translation>
    </message>
    <message>
        <source>Searching…</source>
        <translation>Wird gesucht …</translation>
    </message>
    <message>
        <source>Type a part of the name, or a path such as ~/⁠Documents. You can also drop a file or folder here.</source>
        <translation>Einen Teil des Namens eingeben oder einen Pfad wie ~/⁠Dokumente. Auch Dateien und Ordner können hierher gezogen werden.</translation>
    </message>
    <message>
        <source>Search everything</source>
        <translation>Überall suchen</translation>
    </message>
</context>
<context>
    <name>TextBox</name>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
</context>
<context>
    <name>TryItStep</name>
    <message>
        <source>It works</source>
        <translation>Es funktioniert</translation>
    </message>
    <message>
        <source>This key is taken</source>
        <translation>Diese Taste ist vergeben</translation>
    </message>
    <message>
        <source>Your desktop binds the keys</source>
        <translation>Der Desktop vergibt die Tasten</translation>
    </message>
    <message>
        <source>Try it now</source>
        <translation>Gleich ausprobieren</translation>
    </message>
    <message>
        <source>This key takes you to %1 from everywhere. Go on, or press it again.</source>
        <translation>Diese Taste führt von überall zu %1. Weitergehen oder noch einmal drücken.</translation>
    </message>
    <message>
        <source>Another program holds it, so the desktop did not give it to Skipnest.</source>
        <translation>Ein anderes Programm hält sie, daher hat der Desktop sie Skipnest nicht gegeben.</translation>
    </message>
    <message>
        <source>Press the keys together. You are taken to %1, and this window comes back after a moment.</source>
        <translation>Die Tasten zusammen drücken. Sie führen zu %1, und nach einem Moment kommt dieses Fenster zurück.</translation>
    </message>
    <message>
        <source>Choose another key</source>
        <translation>Andere Taste wählen</translation>
    </message>
    <message>
        <source>Copy what your desktop needs: commands to paste into a terminal for GNOME and KDE, lines of its configuration for sway.</source>
        <translation>Kopieren, was der Desktop braucht: Befehle zum Einfügen in ein Terminal für GNOME und KDE, Zeilen der Konfiguration für sway.</translation>
    </message>
    <message>
        <source>Copy for %1</source>
        <translation>Für %1 kopieren</translation>
    </message>
    <message>
        <source>The bindings are on the clipboard.</source>
        <translation>Die Tastenbelegung ist in der Zwischenablage.</translation>
    </message>
    <message>
        <source>%1 The shortcut is saved. The command “skipnest jump” opens it, and the desktop can give that a key.</source>
        <translation>%1 Das Kürzel ist gespeichert. Der Befehl „skipnest jump“ öffnet sein Ziel, und dem kann der Desktop eine Taste geben.</translation>
    </message>
</context>
<context>
    <name>UndoLine</name>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Strg+Z</translation>
    </message>
</context>
<context>
    <name>VocabularyEditor</name>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>Heard</source>
        <translation>Gehört</translation>
    </message>
    <message>
        <source>New word</source>
        <translation>Neues Wort</translation>
    </message>
    <message>
        <source>Meant</source>
        <translation>Gemeint</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
</context>
<context>
    <name>WeekChart</name>
    <message>
        <source>Jumps of the last weeks</source>
        <translation>Sprünge der letzten Wochen</translation>
    </message>
</context>
<context>
    <name>WelcomeStep</name>
    <message>
        <source>Welcome to Skipnest</source>
        <translation>Willkommen bei Skipnest</translation>
    </message>
    <message>
        <source>Give a key to what you open most often.</source>
        <translation>Was oft geöffnet wird, bekommt eine Taste.</translation>
    </message>
    <message>
        <source>Press it anywhere: the target comes to the front, and is opened first if it has to be.</source>
        <translation>Ein Druck genügt, und das Ziel kommt nach vorn; läuft es noch nicht, wird es geöffnet.</translation>
    </message>
    <message>
        <source>Press it together with Shift, and the target is hidden again.</source>
        <translation>Zusammen mit Umschalt wird das Ziel wieder ausgeblendet.</translation>
    </message>
    <message>
        <source>How should it look?</source>
        <translation>Wie soll es aussehen?</translation>
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
        <source>Skipnest</source>
        <translation>Skipnest</translation>
    </message>
    <message>
        <source>One key takes you to an application, a file or a folder.</source>
        <translation>Eine Taste führt zu einem Programm, einer Datei oder einem Ordner.</translation>
    </message>
</context>
<context>
    <name>WindowCard</name>
    <message>
        <source>In front</source>
        <translation>Vorne</translation>
    </message>
    <message numerus="yes">
        <source>%n tabs</source>
        <translation>
            <numerusform>%n Tab</numerusform>
            <numerusform>%n Tabs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::AvailabilityRows</name>
    <message>
        <source>Shortcuts from everywhere</source>
        <translation>Kürzel von überall</translation>
    </message>
    <message>
        <source>Recording keys</source>
        <translation>Tasten aufnehmen</translation>
    </message>
    <message>
        <source>The desktop&apos;s own keys</source>
        <translation>Eigene Tasten des Desktops</translation>
    </message>
    <message>
        <source>Key gestures</source>
        <translation>Tastengesten</translation>
    </message>
    <message>
        <source>Applications</source>
        <translation>Programme</translation>
    </message>
    <message>
        <source>Windows of programs</source>
        <translation>Fenster der Programme</translation>
    </message>
    <message>
        <source>Pictures of windows</source>
        <translation>Bilder der Fenster</translation>
    </message>
    <message>
        <source>Stepping through windows</source>
        <translation>Durch Fenster gehen</translation>
    </message>
    <message>
        <source>Search for targets</source>
        <translation>Suche nach Zielen</translation>
    </message>
    <message>
        <source>Icon in the menu bar or tray</source>
        <translation>Symbol in Menüleiste oder Infobereich</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>Entry in file managers</source>
        <translation>Eintrag in Dateiverwaltungen</translation>
    </message>
    <message>
        <source>Web service</source>
        <translation>Webdienst</translation>
    </message>
    <message>
        <source>Recording a crash</source>
        <translation>Abstürze festhalten</translation>
    </message>
    <message>
        <source>Tabs of %1</source>
        <translation>Tabs von %1</translation>
    </message>
    <message>
        <source>Language model</source>
        <translation>Sprachmodell</translation>
    </message>
    <message>
        <source>Contacts</source>
        <translation>Kontakte</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::BrowserSetup</name>
    <message>
        <source>connected</source>
        <translation>verbunden</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>nicht verbunden</translation>
    </message>
    <message>
        <source>not set up</source>
        <translation>nicht eingerichtet</translation>
    </message>
    <message>
        <source>cannot be reached</source>
        <translation>nicht erreichbar</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1 could not be told of Skipnest: %2</source>
        <translation>%1 konnte nicht von Skipnest erfahren: %2</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ChallengeRows</name>
    <message numerus="yes">
        <source>%n jumps, %1, %2</source>
        <extracomment>%1 and %2 are the texts for minutes and for days in a row.</extracomment>
        <translation>
            <numerusform>%n Sprung, %1, %2</numerusform>
            <numerusform>%n Sprünge, %1, %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes saved</source>
        <translation>
            <numerusform>%n Minute gespart</numerusform>
            <numerusform>%n Minuten gespart</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days in a row</source>
        <translation>
            <numerusform>%n Tag in Folge</numerusform>
            <numerusform>%n Tage in Folge</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ChallengeScreenModel</name>
    <message numerus="yes">
        <source>A name is 1 to %n characters that can be seen.</source>
        <translation>
            <numerusform>Ein Name hat %n sichtbares Zeichen.</numerusform>
            <numerusform>Ein Name hat 1 bis %n sichtbare Zeichen.</numerusform>
        </translation>
    </message>
    <message>
        <source>No rank yet</source>
        <translation>Noch kein Rang</translation>
    </message>
    <message>
        <source>Rank #%1</source>
        <translation>Rang %1</translation>
    </message>
    <message>
        <source>Rank #%1 of %2</source>
        <translation>Rang %1 von %2</translation>
    </message>
    <message numerus="yes">
        <source>%n places up this week</source>
        <translation>
            <numerusform>%n Platz gewonnen diese Woche</numerusform>
            <numerusform>%n Plätze gewonnen diese Woche</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n places down this week</source>
        <translation>
            <numerusform>%n Platz verloren diese Woche</numerusform>
            <numerusform>%n Plätze verloren diese Woche</numerusform>
        </translation>
    </message>
    <message>
        <source>The board is on its way…</source>
        <translation>Die Rangliste wird geladen …</translation>
    </message>
    <message>
        <source>Nobody is on the board yet.</source>
        <translation>Noch steht niemand auf der Rangliste.</translation>
    </message>
    <message>
        <source>The board can&apos;t be reached just now.</source>
        <translation>Die Rangliste ist gerade nicht erreichbar.</translation>
    </message>
    <message>
        <source>The board can&apos;t be reached just now. This is how it was last.</source>
        <translation>Die Rangliste ist gerade nicht erreichbar. So sah sie zuletzt aus.</translation>
    </message>
    <message>
        <source>That name&apos;s already taken. Try another.</source>
        <translation>Dieser Name ist schon vergeben. Bitte einen anderen versuchen.</translation>
    </message>
    <message>
        <source>The leaderboard can&apos;t be reached just now, so nothing was changed.</source>
        <translation>Die Rangliste ist gerade nicht erreichbar, deshalb wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Your entry could not be removed just now, so you are still on the board.</source>
        <translation>Der Eintrag konnte gerade nicht gelöscht werden und steht noch auf der Rangliste.</translation>
    </message>
    <message>
        <source>Your entry is gone.</source>
        <translation>Der Eintrag ist gelöscht.</translation>
    </message>
    <message>
        <source>The browser could not be opened.</source>
        <translation>Der Browser ließ sich nicht öffnen.</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ExportModel</name>
    <message>
        <source>%1 · replaces today&apos;s export there</source>
        <translation>%1 · ersetzt den heutigen Export dort</translation>
    </message>
    <message>
        <source>Exported to %1</source>
        <translation>Exportiert nach %1</translation>
    </message>
    <message>
        <source>The export couldn&apos;t be written: %1</source>
        <translation>Der Export konnte nicht geschrieben werden: %1</translation>
    </message>
    <message>
        <source>1 shortcut and all settings</source>
        <translation>1 Kürzel und alle Einstellungen</translation>
    </message>
    <message numerus="yes">
        <source>%n shortcuts and all settings</source>
        <translation>
            <numerusform>%n Kürzel und alle Einstellungen</numerusform>
            <numerusform>%n Kürzel und alle Einstellungen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::FeedbackForm</name>
    <message>
        <source>Bug</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>Wunsch</translation>
    </message>
    <message>
        <source>Marketing</source>
        <translation>Marketing</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Anderes</translation>
    </message>
    <message>
        <source>This doesn&apos;t look like an e-mail address yet, so no answer could reach you.</source>
        <translation>Das sieht noch nicht wie eine E-Mail-Adresse aus; so käme keine Antwort an.</translation>
    </message>
    <message>
        <source>Sending…</source>
        <translation>Wird gesendet …</translation>
    </message>
    <message>
        <source>Your feedback is on its way.</source>
        <translation>Die Rückmeldung ist unterwegs.</translation>
    </message>
    <message>
        <source>Couldn&apos;t send just now - check your connection and try again.</source>
        <translation>Senden gerade nicht möglich – Verbindung prüfen und noch einmal versuchen.</translation>
    </message>
    <message>
        <source>The text is on the clipboard.</source>
        <translation>Der Text ist in der Zwischenablage.</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::FirstShortcut</name>
    <message>
        <source>Running now</source>
        <translation>Läuft gerade</translation>
    </message>
    <message>
        <source>Web browser</source>
        <translation>Webbrowser</translation>
    </message>
    <message>
        <source>File manager</source>
        <translation>Dateiverwaltung</translation>
    </message>
    <message>
        <source>Mail</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Terminal</source>
        <translation>Terminal</translation>
    </message>
    <message>
        <source>Application</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>“%1” is not there any more.</source>
        <translation>„%1“ ist nicht mehr da.</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::GesturePractice</name>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>This desktop</source>
        <translation>Dieser Desktop</translation>
    </message>
    <message>
        <source>GNOME opens its overview when Super is tapped.</source>
        <translation>GNOME öffnet seine Übersicht, wenn Super angetippt wird.</translation>
    </message>
    <message>
        <source>%1 acts on a tap of Super itself.</source>
        <translation>%1 reagiert selbst auf das Antippen von Super.</translation>
    </message>
    <message>
        <source>%1 Shift is proposed in its place.</source>
        <translation>%1 Stattdessen wird Umschalt vorgeschlagen.</translation>
    </message>
    <message>
        <source>%1 Shift is a better choice here.</source>
        <translation>%1 Umschalt ist hier die bessere Wahl.</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ImportModel</name>
    <message numerus="yes">
        <source>%n new</source>
        <translation>
            <numerusform>%n neu</numerusform>
            <numerusform>%n neu</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n updated</source>
        <translation>
            <numerusform>%n aktualisiert</numerusform>
            <numerusform>%n aktualisiert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unchanged</source>
        <translation>
            <numerusform>%n unverändert</numerusform>
            <numerusform>%n unverändert</numerusform>
        </translation>
    </message>
    <message>
        <source>That file is larger than 16 MB, and no Skipnest export is.</source>
        <translation>Diese Datei ist größer als 16 MB; kein Skipnest-Export ist das.</translation>
    </message>
    <message>
        <source>That file couldn&apos;t be read as a Skipnest export - pick another one.</source>
        <translation>Diese Datei ließ sich nicht als Skipnest-Export lesen – eine andere wählen.</translation>
    </message>
    <message>
        <source>No file of that name was found. A whole path works too, and so does dropping the file here.</source>
        <translation>Keine Datei dieses Namens gefunden. Auch ein ganzer Pfad geht, und die Datei kann hierher gezogen werden.</translation>
    </message>
    <message>
        <source>There is no shortcut in that file.</source>
        <translation>In dieser Datei ist kein Kürzel.</translation>
    </message>
    <message>
        <source>Nothing was imported: %1</source>
        <translation>Es wurde nichts importiert: %1</translation>
    </message>
    <message>
        <source>Confirm new applications in the list before their keys work.</source>
        <translation>Neue Programme in der Liste bestätigen, dann wirken ihre Tasten.</translation>
    </message>
    <message>
        <source>1 conflict</source>
        <translation>1 Konflikt</translation>
    </message>
    <message numerus="yes">
        <source>%n conflicts</source>
        <translation>
            <numerusform>%n Konflikt</numerusform>
            <numerusform>%n Konflikte</numerusform>
        </translation>
    </message>
    <message>
        <source>1 application to confirm</source>
        <translation>1 Programm zu bestätigen</translation>
    </message>
    <message numerus="yes">
        <source>%n applications to confirm</source>
        <translation>
            <numerusform>%n Programm zu bestätigen</numerusform>
            <numerusform>%n Programme zu bestätigen</numerusform>
        </translation>
    </message>
    <message>
        <source>Nothing new: all of that file is here already.</source>
        <translation>Nichts Neues: Alles aus dieser Datei ist schon da.</translation>
    </message>
    <message>
        <source>Imported 1 shortcut: </source>
        <translation>1 Kürzel importiert: </translation>
    </message>
    <message numerus="yes">
        <source>Imported %n shortcuts: </source>
        <translation>
            <numerusform>%n Kürzel importiert: </numerusform>
            <numerusform>%n Kürzel importiert: </numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::KeyLedgerRows</name>
    <message>
        <source>hide %1</source>
        <translation>%1 ausblenden</translation>
    </message>
    <message>
        <source>next window</source>
        <translation>nächstes Fenster</translation>
    </message>
    <message>
        <source>previous window</source>
        <translation>voriges Fenster</translation>
    </message>
    <message>
        <source>voice</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Skipnest</source>
        <translation>Skipnest</translation>
    </message>
    <message>
        <source>Refused to Skipnest</source>
        <translation>Skipnest verweigert</translation>
    </message>
    <message>
        <source>The desktop</source>
        <translation>Der Desktop</translation>
    </message>
    <message>
        <source>another program</source>
        <translation>ein anderes Programm</translation>
    </message>
    <message>
        <source>Refused: %1 has it</source>
        <translation>Verweigert: %1 hat sie</translation>
    </message>
    <message>
        <source>never fires</source>
        <translation>kommt nie an</translation>
    </message>
    <message>
        <source>never fires: %1</source>
        <translation>kommt nie an: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n of Skipnest</source>
        <translation>
            <numerusform>%n von Skipnest</numerusform>
            <numerusform>%n von Skipnest</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n refused</source>
        <translation>
            <numerusform>%n verweigert</numerusform>
            <numerusform>%n verweigert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of the desktop</source>
        <translation>
            <numerusform>%n vom Desktop</numerusform>
            <numerusform>%n vom Desktop</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ListBanner</name>
    <message>
        <source>The snapshot could not be restored: %1</source>
        <translation>Der Schnappschuss ließ sich nicht wiederherstellen: %1</translation>
    </message>
    <message>
        <source>Your configuration could not be read and was set aside.</source>
        <translation>Die Konfiguration war nicht lesbar und wurde zur Seite gelegt.</translation>
    </message>
    <message>
        <source>Your configuration could not be read. It is set aside before anything new is saved.</source>
        <translation>Die Konfiguration ist nicht lesbar. Sie wird zur Seite gelegt, bevor etwas Neues gespeichert wird.</translation>
    </message>
    <message>
        <source>Your shortcuts are back as they were on %1.</source>
        <translation>Die Kürzel sind wieder wie am %1.</translation>
    </message>
    <message>
        <source>Copied. Paste the lines into the configuration of sway.</source>
        <translation>Kopiert. Die Zeilen in die Konfiguration von sway einfügen.</translation>
    </message>
    <message>
        <source>Copied. Paste the text into a terminal.</source>
        <translation>Kopiert. Den Text in ein Terminal einfügen.</translation>
    </message>
    <message>
        <source>This desktop gives no keys to programs. Let it run the jumps itself: copy the bindings for</source>
        <translation>Dieser Desktop gibt Programmen keine Tasten. Er kann die Sprünge selbst ausführen: Tastenbelegung kopieren für</translation>
    </message>
    <message>
        <source>Skipnest update available</source>
        <translation>Update für Skipnest verfügbar</translation>
    </message>
    <message numerus="yes">
        <source>%n of %1 keys are not bound</source>
        <translation>
            <numerusform>%n von %1 Tasten wirkt nicht</numerusform>
            <numerusform>%n von %1 Tasten wirken nicht</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: another program has them.</source>
        <translation>%1: Ein anderes Programm hat sie.</translation>
    </message>
    <message>
        <source>%1: taken by %2.</source>
        <translation>%1: vergeben an %2.</translation>
    </message>
    <message>
        <source>Restore snapshot of %1</source>
        <translation>Schnappschuss vom %1 wiederherstellen</translation>
    </message>
    <message>
        <source>Show the update</source>
        <translation>Update zeigen</translation>
    </message>
    <message>
        <source>Skipnest quit unexpectedly last time</source>
        <translation>Skipnest wurde zuletzt unerwartet beendet</translation>
    </message>
    <message>
        <source>Show the report</source>
        <translation>Bericht ansehen</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::OnboardingModel</name>
    <message>
        <source>The system did not take it. It is tried again at the next start.</source>
        <translation>Das System hat es nicht angenommen. Beim nächsten Start wird es noch einmal versucht.</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::QuickPanels</name>
    <message>
        <source>Welcome to Skipnest</source>
        <translation>Willkommen bei Skipnest</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::SettingRows</name>
    <message>
        <source>Arrives with a later version; your choice is kept.</source>
        <translation>Kommt mit einer späteren Version; deine Wahl bleibt erhalten.</translation>
    </message>
    <message>
        <source>This build has no web service: nothing of this is ever sent.</source>
        <translation>Diese Fassung hat keinen Webdienst: nichts davon wird je gesendet.</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::SettingsModel</name>
    <message>
        <source>Keys Who has which key</source>
        <translation>Tasten Wer welche Taste hat</translation>
    </message>
    <message>
        <source>About Version What works here</source>
        <translation>Über Version Was hier funktioniert</translation>
    </message>
    <message>
        <source>Global Jump Challenge leaderboard name flag</source>
        <translation>Global Jump Challenge Weltrangliste Name Flagge</translation>
    </message>
    <message>
        <source>Browser tabs extension Chromium Chrome Firefox</source>
        <translation>Browser Tabs Erweiterung Chromium Chrome Firefox</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ShortcutEditor</name>
    <message>
        <source>“%1” is not there any more.</source>
        <translation>„%1“ ist nicht mehr da.</translation>
    </message>
    <message>
        <source>“%1” has a shortcut already.</source>
        <translation>„%1“ hat schon ein Kürzel.</translation>
    </message>
    <message>
        <source>Hides with %1</source>
        <translation>Wird ausgeblendet mit %1</translation>
    </message>
    <message>
        <source>Choose what the shortcut opens first.</source>
        <translation>Zuerst wählen, was das Kürzel öffnet.</translation>
    </message>
    <message>
        <source>One key cannot both jump and hide.</source>
        <translation>Eine Taste kann nicht springen und ausblenden zugleich.</translation>
    </message>
    <message>
        <source>This shortcut was removed in the meantime. Saving makes it anew.</source>
        <translation>Dieses Kürzel wurde inzwischen entfernt. Speichern legt es neu an.</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ShortcutListScreenModel</name>
    <message>
        <source>another program</source>
        <translation>ein anderes Programm</translation>
    </message>
    <message>
        <source>Hide key not bound: %1 has it</source>
        <translation>Ausblenden wirkt nicht: %1 hat die Taste</translation>
    </message>
    <message>
        <source>Application</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>Imported – confirm before it can run</source>
        <translation>Importiert – wirkt erst nach Bestätigung</translation>
    </message>
    <message>
        <source>Not found: %1</source>
        <translation>Nicht gefunden: %1</translation>
    </message>
    <message>
        <source>Not bound by this desktop</source>
        <translation>Von diesem Desktop nicht vergeben</translation>
    </message>
    <message>
        <source>Same key as “%1”</source>
        <translation>Gleiche Taste wie „%1“</translation>
    </message>
    <message>
        <source>Removed “%1”</source>
        <translation>„%1“ entfernt</translation>
    </message>
    <message>
        <source>Not bound: %1 has it</source>
        <translation>Wirkt nicht: %1 hat sie</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::StatisticsCardModel</name>
    <message>
        <source>Your jumps are counted here</source>
        <translation>Hier werden deine Sprünge gezählt</translation>
    </message>
    <message>
        <source>Press one of your keys to begin.</source>
        <translation>Drück eine deiner Tasten, und es geht los.</translation>
    </message>
    <message numerus="yes">
        <source>days, keep it alive today</source>
        <translation>
            <numerusform>Tag, heute weiter so</numerusform>
            <numerusform>Tage, heute weiter so</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>days in a row</source>
        <translation>
            <numerusform>Tag in Folge</numerusform>
            <numerusform>Tage in Folge</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln jumps in all</source>
        <translation>
            <numerusform>%Ln Sprung insgesamt</numerusform>
            <numerusform>%Ln Sprünge insgesamt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln by key</source>
        <translation>
            <numerusform>%Ln per Taste</numerusform>
            <numerusform>%Ln per Taste</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln from the window switcher</source>
        <translation>
            <numerusform>%Ln aus dem Fensterwechsler</numerusform>
            <numerusform>%Ln aus dem Fensterwechsler</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln by voice</source>
        <translation>
            <numerusform>%Ln per Stimme</numerusform>
            <numerusform>%Ln per Stimme</numerusform>
        </translation>
    </message>
    <message>
        <source>since %1</source>
        <translation>seit dem %1</translation>
    </message>
    <message>
        <source>🌍 Global Jump Challenge</source>
        <translation>🌍 Global Jump Challenge</translation>
    </message>
    <message>
        <source>🌍 #%1 of %2 in the world</source>
        <translation>🌍 Platz %1 von %2 weltweit</translation>
    </message>
    <message>
        <source>Put your jumps on the world leaderboard - anonymous, just a name and a flag.</source>
        <translation>Bring deine Sprünge auf die Weltrangliste - anonym, nur ein Name und eine Flagge.</translation>
    </message>
    <message>
        <source>Your rank comes with the next answer of the board.</source>
        <translation>Dein Platz kommt mit der nächsten Antwort der Rangliste.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln places up this week</source>
        <translation>
            <numerusform>%Ln Platz gewonnen diese Woche</numerusform>
            <numerusform>%Ln Plätze gewonnen diese Woche</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln places down this week</source>
        <translation>
            <numerusform>%Ln Platz verloren diese Woche</numerusform>
            <numerusform>%Ln Plätze verloren diese Woche</numerusform>
        </translation>
    </message>
    <message>
        <source>Where you were at the start of the week</source>
        <translation>Wo du zu Beginn der Woche warst</translation>
    </message>
    <message>
        <source>The picture couldn&apos;t be drawn.</source>
        <translation>Das Bild konnte nicht gezeichnet werden.</translation>
    </message>
    <message>
        <source>Saved to %1</source>
        <translation>Gespeichert unter %1</translation>
    </message>
    <message>
        <source>The picture couldn&apos;t be saved: %1</source>
        <translation>Das Bild konnte nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>The picture is on the clipboard.</source>
        <translation>Das Bild liegt in der Zwischenablage.</translation>
    </message>
    <message>
        <source>The link is on the clipboard.</source>
        <translation>Der Link liegt in der Zwischenablage.</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::SwitcherBarModel</name>
    <message>
        <source>Untitled</source>
        <translation>Ohne Titel</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::TargetChooser</name>
    <message>
        <source>Application</source>
        <translation>Programm</translation>
    </message>
    <message>
        <source>There is nothing at “%1”.</source>
        <translation>Unter „%1“ ist nichts.</translation>
    </message>
    <message>
        <source>Nothing found yet: the names on this computer are still being read.</source>
        <translation>Noch nichts gefunden: Die Namen auf diesem Computer werden gerade gelesen.</translation>
    </message>
    <message>
        <source>The names on this computer are still being read; more may follow.</source>
        <translation>Die Namen auf diesem Computer werden gerade gelesen; es kann noch mehr kommen.</translation>
    </message>
    <message>
        <source>No application is called “%1”.</source>
        <translation>Kein Programm heißt „%1“.</translation>
    </message>
    <message>
        <source>Nothing is called “%1”.</source>
        <translation>Nichts heißt „%1“.</translation>
    </message>
</context>
<context>
    <name>skipnest::ui::WeekBars</name>
    <message>
        <source>d MMM</source>
        <comment>a day as QDate formats it</comment>
        <translation>d. MMM</translation>
    </message>
    <message numerus="yes">
        <source>%Ln jumps</source>
        <translation>
            <numerusform>%Ln Sprung</numerusform>
            <numerusform>%Ln Sprünge</numerusform>
        </translation>
    </message>
    <message>
        <source>today</source>
        <translation>heute</translation>
    </message>
    <message>
        <source>%1 in the seven days to today</source>
        <translation>%1 in den sieben Tagen bis heute</translation>
    </message>
    <message>
        <source>%1 in the seven days to %2</source>
        <translation>%1 in den sieben Tagen bis %2</translation>
    </message>
</context>
</TS>
