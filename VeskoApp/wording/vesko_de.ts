<?xml version="1.0" encoding="utf-8"?>
<!-- German. Nobody whose first language it is has read this catalogue yet. -->
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Vesko</name>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Sign-in code</source>
        <translation>Anmeldecode</translation>
    </message>
    <message>
        <source>Use another email</source>
        <translation>Andere E-Mail-Adresse verwenden</translation>
    </message>
    <message>
        <source>Continue with Google</source>
        <translation>Weiter mit Google</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>or</source>
        <translation>oder</translation>
    </message>
    <message>
        <source>Email address</source>
        <translation>E-Mail-Adresse</translation>
    </message>
    <message>
        <source>Send code</source>
        <translation>Code senden</translation>
    </message>
    <message>
        <source>Release Fn to finish</source>
        <translation>Zum Beenden Taste loslassen</translation>
    </message>
    <message>
        <source>Release Fn to finish recording</source>
        <translation>Zum Beenden der Aufnahme Taste loslassen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
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
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Recognized term</source>
        <translation>Erkannter Begriff</translation>
    </message>
    <message>
        <source>For example: tallki</source>
        <translation>Zum Beispiel: tallki</translation>
    </message>
    <message>
        <source>Use instead</source>
        <translation>Stattdessen schreiben</translation>
    </message>
    <message>
        <source>For example: Vesko</source>
        <translation>Zum Beispiel: Vesko</translation>
    </message>
    <message>
        <source>Dictionary</source>
        <translation>Wörterbuch</translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>%1 bearbeiten</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>%1 entfernen</translation>
    </message>
    <message>
        <source>Use term</source>
        <translation>Begriff verwenden</translation>
    </message>
    <message>
        <source>Use %1</source>
        <translation>%1 verwenden</translation>
    </message>
    <message>
        <source>Vesko Dictionary</source>
        <translation>Vesko-Wörterbuch</translation>
    </message>
    <message>
        <source>Your words, your spelling</source>
        <translation>Ihre Wörter, Ihre Schreibweise</translation>
    </message>
    <message>
        <source>Corrections stay on this Mac. Original transcripts are kept.</source>
        <translation>Korrekturen bleiben auf diesem Computer. Die ursprünglichen Transkripte werden aufbewahrt.</translation>
    </message>
    <message>
        <source>Save last corrections</source>
        <translation>Letzte Korrekturen sichern</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Search dictionary</source>
        <translation>Wörterbuch durchsuchen</translation>
    </message>
    <message>
        <source>Whole terms are replaced after recognition. New unrelated wording stays a suggestion. You can edit, disable or remove any term.</source>
        <translation>Ersetzt werden ganze Begriffe nach der Erkennung. Neue Formulierungen ohne Ähnlichkeit bleiben ein Vorschlag. Jeder Begriff lässt sich bearbeiten, ausschalten oder entfernen.</translation>
    </message>
    <message>
        <source>Which language do you speak?</source>
        <translation>Welche Sprache sprechen Sie?</translation>
    </message>
    <message>
        <source>I switch between languages</source>
        <translation>Ich wechsle zwischen Sprachen</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menü</translation>
    </message>
    <message>
        <source>Your voice, kept close</source>
        <translation>Ihre Stimme, ganz bei Ihnen</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>All notes</source>
        <translation>Alle Notizen</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>Projekte</translation>
    </message>
    <message>
        <source>New project</source>
        <translation>Neues Projekt</translation>
    </message>
    <message>
        <source>Rename project</source>
        <translation>Projekt umbenennen</translation>
    </message>
    <message>
        <source>Trash</source>
        <translation>Papierkorb</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sichern</translation>
    </message>
    <message>
        <source>Project name</source>
        <translation>Name des Projekts</translation>
    </message>
    <message>
        <source>Note title</source>
        <translation>Titel der Notiz</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
    <message>
        <source>Add voice</source>
        <translation>Sprache hinzufügen</translation>
    </message>
    <message>
        <source>Saved on this Mac</source>
        <translation>Auf diesem Computer gesichert</translation>
    </message>
    <message>
        <source>Note copied</source>
        <translation>Notiz kopiert</translation>
    </message>
    <message>
        <source>Copy note</source>
        <translation>Notiz kopieren</translation>
    </message>
    <message>
        <source>Copy note (⌘C)</source>
        <translation>Notiz kopieren (Strg+C)</translation>
    </message>
    <message>
        <source>Note actions</source>
        <translation>Aktionen für die Notiz</translation>
    </message>
    <message>
        <source>Note text</source>
        <translation>Text der Notiz</translation>
    </message>
    <message>
        <source>Original recordings</source>
        <translation>Originalaufnahmen</translation>
    </message>
    <message>
        <source>Copy text</source>
        <translation>Text kopieren</translation>
    </message>
    <message>
        <source>Export Markdown…</source>
        <translation>Als Markdown exportieren…</translation>
    </message>
    <message>
        <source>Restore note</source>
        <translation>Notiz wiederherstellen</translation>
    </message>
    <message>
        <source>Move to Trash…</source>
        <translation>In den Papierkorb legen…</translation>
    </message>
    <message>
        <source>Delete permanently…</source>
        <translation>Endgültig löschen…</translation>
    </message>
    <message>
        <source>Move this note to Trash?</source>
        <translation>Diese Notiz in den Papierkorb legen?</translation>
    </message>
    <message>
        <source>You can restore the note and its recordings from Trash.</source>
        <translation>Sie können die Notiz und ihre Aufnahmen aus dem Papierkorb wiederherstellen.</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>In den Papierkorb legen</translation>
    </message>
    <message>
        <source>Delete this note and its recordings permanently?</source>
        <translation>Diese Notiz und ihre Aufnahmen endgültig löschen?</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Delete permanently</source>
        <translation>Endgültig löschen</translation>
    </message>
    <message>
        <source>The file that is there will be replaced.</source>
        <translation>Die vorhandene Datei wird ersetzt.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Search notes and transcripts</source>
        <translation>Notizen und Transkripte durchsuchen</translation>
    </message>
    <message>
        <source>Play or stop original recording</source>
        <translation>Originalaufnahme abspielen oder anhalten</translation>
    </message>
    <message>
        <source>Original transcript</source>
        <translation>Ursprüngliches Transkript</translation>
    </message>
    <message>
        <source>Edited text</source>
        <translation>Bearbeiteter Text</translation>
    </message>
    <message>
        <source>Copy edited text</source>
        <translation>Bearbeiteten Text kopieren</translation>
    </message>
    <message>
        <source>Transcribe this original again?</source>
        <translation>Dieses Original noch einmal transkribieren?</translation>
    </message>
    <message>
        <source>Uses your current model settings. OpenRouter requests use your credit and can incur another charge. The result stays in this note and is never pasted automatically.</source>
        <translation>Verwendet die jetzigen Modelleinstellungen. Anfragen an OpenRouter verbrauchen Ihr Guthaben und können erneut Kosten verursachen. Das Ergebnis bleibt in dieser Notiz und wird nie von selbst eingefügt.</translation>
    </message>
    <message>
        <source>Transcribe</source>
        <translation>Transkribieren</translation>
    </message>
    <message>
        <source>New note</source>
        <translation>Neue Notiz</translation>
    </message>
    <message>
        <source>Create a text note</source>
        <translation>Textnotiz anlegen</translation>
    </message>
    <message>
        <source>Records into the library without pasting into another app</source>
        <translation>Nimmt in die Bibliothek auf, ohne in ein anderes Programm einzufügen</translation>
    </message>
    <message>
        <source>Dismiss message</source>
        <translation>Meldung schließen</translation>
    </message>
    <message>
        <source>Your thoughts, ready to use</source>
        <translation>Ihre Gedanken, bereit zur Verwendung</translation>
    </message>
    <message>
        <source>Select a note to edit its text, replay the original, or add more by voice.</source>
        <translation>Wählen Sie eine Notiz aus, um ihren Text zu bearbeiten, das Original anzuhören oder weiterzusprechen.</translation>
    </message>
    <message>
        <source>How to dictate</source>
        <translation>So diktieren Sie</translation>
    </message>
    <message>
        <source>Hold Fn and speak</source>
        <translation>Taste halten und sprechen</translation>
    </message>
    <message>
        <source>Release to finish. Vesko pastes into the field you started in.</source>
        <translation>Loslassen beendet. Vesko fügt den Text in das Feld ein, in dem Sie begonnen haben.</translation>
    </message>
    <message>
        <source>Tap Fn for longer thoughts</source>
        <translation>Für längere Gedanken die Taste antippen</translation>
    </message>
    <message>
        <source>Recording keeps going hands-free. Tap Fn again to finish.</source>
        <translation>Die Aufnahme läuft freihändig weiter. Tippen Sie die Taste zum Beenden noch einmal an.</translation>
    </message>
    <message>
        <source>Works the same way when Fn is busy.</source>
        <translation>Geht ebenso, wenn die Taste schon vergeben ist.</translation>
    </message>
    <message>
        <source>Click the floating circle</source>
        <translation>Auf den schwebenden Kreis klicken</translation>
    </message>
    <message>
        <source>It sits in the corner and shows when Vesko is listening.</source>
        <translation>Er sitzt in der Ecke und zeigt, wann Vesko zuhört.</translation>
    </message>
    <message>
        <source>Keep notes in the library</source>
        <translation>Notizen in der Bibliothek aufbewahren</translation>
    </message>
    <message>
        <source>Record a voice note, edit the text, and group notes by project.</source>
        <translation>Nehmen Sie eine Sprachnotiz auf, bearbeiten Sie den Text und ordnen Sie Notizen nach Projekten.</translation>
    </message>
    <message>
        <source>Speak once. Keep the thought. Use the words.</source>
        <translation>Einmal sprechen. Den Gedanken behalten. Die Worte nutzen.</translation>
    </message>
    <message>
        <source>Faster than typing</source>
        <translation>Schneller als tippen</translation>
    </message>
    <message>
        <source>Say it in any app. Vesko writes it where your cursor is.</source>
        <translation>Sprechen Sie in jedem Programm. Vesko schreibt es dorthin, wo Ihre Einfügemarke steht.</translation>
    </message>
    <message>
        <source>Nothing gets lost</source>
        <translation>Nichts geht verloren</translation>
    </message>
    <message>
        <source>Every original recording stays on this Mac. Retry any transcription.</source>
        <translation>Jede Originalaufnahme bleibt auf diesem Computer. Jede Transkription lässt sich wiederholen.</translation>
    </message>
    <message>
        <source>Yours to edit</source>
        <translation>Von Ihnen bearbeitbar</translation>
    </message>
    <message>
        <source>Notes, projects and a personal dictionary that learns your words.</source>
        <translation>Notizen, Projekte und ein persönliches Wörterbuch, das Ihre Wörter lernt.</translation>
    </message>
    <message>
        <source>Welcome to Vesko</source>
        <translation>Willkommen bei Vesko</translation>
    </message>
    <message>
        <source>Allow access</source>
        <translation>Zugriff erlauben</translation>
    </message>
    <message>
        <source>macOS asks once for each. You can change them later in Settings.</source>
        <translation>Was Vesko zum Arbeiten braucht. Sie finden es später in den Einstellungen wieder.</translation>
    </message>
    <message>
        <source>You are signed in</source>
        <translation>Sie sind angemeldet</translation>
    </message>
    <message>
        <source>Create your Vesko account</source>
        <translation>Vesko-Konto anlegen</translation>
    </message>
    <message>
        <source>Notes and recordings stay on this Mac.</source>
        <translation>Notizen und Aufnahmen bleiben auf diesem Computer.</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message>
        <source>Stop dictation</source>
        <translation>Diktat beenden</translation>
    </message>
    <message>
        <source>Start dictation</source>
        <translation>Diktat beginnen</translation>
    </message>
    <message>
        <source>Open Vesko</source>
        <translation>Vesko öffnen</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen…</translation>
    </message>
    <message>
        <source>Quit Vesko</source>
        <translation>Vesko beenden</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Konto</translation>
    </message>
    <message>
        <source>Signed in as</source>
        <translation>Angemeldet als</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>Verfahren</translation>
    </message>
    <message>
        <source>Sign out</source>
        <translation>Abmelden</translation>
    </message>
    <message>
        <source>Delete account…</source>
        <translation>Konto löschen…</translation>
    </message>
    <message>
        <source>Delete your Vesko account?</source>
        <translation>Ihr Vesko-Konto löschen?</translation>
    </message>
    <message>
        <source>Your account is removed from Vesko's service. Notes and recordings on this Mac are kept.</source>
        <translation>Ihr Konto wird beim Dienst von Vesko entfernt. Notizen und Aufnahmen auf diesem Computer bleiben erhalten.</translation>
    </message>
    <message>
        <source>Delete account</source>
        <translation>Konto löschen</translation>
    </message>
    <message>
        <source>Capture and insertion</source>
        <translation>Aufnehmen und Einfügen</translation>
    </message>
    <message>
        <source>Global shortcut</source>
        <translation>Globales Tastenkürzel</translation>
    </message>
    <message>
        <source>Also use Fn / Globe to start and stop</source>
        <translation>Auch mit einer einzelnen Taste beginnen und beenden</translation>
    </message>
    <message>
        <source>Dictation key</source>
        <translation>Diktiertaste</translation>
    </message>
    <message>
        <source>Fn starts recording when pressed. Tap to keep recording, or hold for 0.35 seconds and release to finish. A second tap stops a latched recording. Fn combinations do not send audio for transcription. Set Fn/Globe to Do Nothing in System Settings &gt; Keyboard if macOS opens its own dictation or emoji picker.</source>
        <translation>Die Aufnahme beginnt, sobald die Taste gedrückt wird. Antippen nimmt weiter auf; 0,35 Sekunden halten und loslassen beendet. Ein zweites Antippen beendet eine laufende Aufnahme. Zusammen mit anderen Tasten wird kein Ton zur Transkription gesendet. Wenn Ihr Desktop mit dieser Taste etwas Eigenes macht, schalten Sie das in seinen Tastatureinstellungen aus oder wählen Sie eine andere Taste.</translation>
    </message>
    <message>
        <source>Show floating capture button</source>
        <translation>Schwebenden Aufnahmeknopf zeigen</translation>
    </message>
    <message>
        <source>Click it to record. Drag it to move it; a drag never starts a recording. Right-click it for the Vesko menu.</source>
        <translation>Klicken nimmt auf. Ziehen verschiebt ihn und beginnt nie eine Aufnahme. Ein Rechtsklick öffnet das Menü von Vesko.</translation>
    </message>
    <message>
        <source>The Vesko icon is hidden behind the camera area of the menu bar. Hold Command and drag menu bar icons to make room, or right-click the floating button for the same menu.</source>
        <translation>Dieser Desktop zeigt keine Statussymbole. Für dasselbe Menü klicken Sie mit der rechten Taste auf den schwebenden Knopf.</translation>
    </message>
    <message>
        <source>Play sounds when recording starts and stops</source>
        <translation>Bei Beginn und Ende der Aufnahme Töne abspielen</translation>
    </message>
    <message>
        <source>Preview start sound</source>
        <translation>Ton für den Beginn anhören</translation>
    </message>
    <message>
        <source>Preview stop sound</source>
        <translation>Ton für das Ende anhören</translation>
    </message>
    <message>
        <source>Paste dictation into the original field</source>
        <translation>Diktat in das ursprüngliche Feld einfügen</translation>
    </message>
    <message>
        <source>Text is copied after dictation. Automatic paste needs Accessibility access and an unchanged focused field. Secure or unsupported fields use copy only. Vesko never presses Return.</source>
        <translation>Nach dem Diktat wird der Text kopiert. Zum selbsttätigen Einfügen braucht Vesko die Barrierefreiheit und ein unverändertes Feld mit dem Fokus. Bei geschützten oder nicht unterstützten Feldern wird nur kopiert. Vesko drückt nie die Eingabetaste.</translation>
    </message>
    <message>
        <source>OpenRouter access</source>
        <translation>Zugang zu OpenRouter</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Verwenden</translation>
    </message>
    <message>
        <source>Vesko access is ready</source>
        <translation>Der Zugang über Vesko ist bereit</translation>
    </message>
    <message>
        <source>Key status</source>
        <translation>Stand des Schlüssels</translation>
    </message>
    <message>
        <source>Your personal API key</source>
        <translation>Ihr eigener API-Schlüssel</translation>
    </message>
    <message>
        <source>Save key</source>
        <translation>Schlüssel sichern</translation>
    </message>
    <message>
        <source>Remove key</source>
        <translation>Schlüssel entfernen</translation>
    </message>
    <message>
        <source>OpenRouter account</source>
        <translation>OpenRouter-Konto</translation>
    </message>
    <message>
        <source>Your key belongs to this macOS account. Vesko does not share it with other users or top up your balance.</source>
        <translation>Ihr Schlüssel gehört zu Ihrem Benutzerkonto auf diesem Computer. Vesko teilt ihn nicht mit anderen Benutzern und lädt Ihr Guthaben nicht auf.</translation>
    </message>
    <message>
        <source>Speech recognition</source>
        <translation>Spracherkennung</translation>
    </message>
    <message>
        <source>Transcribe with</source>
        <translation>Transkribieren mit</translation>
    </message>
    <message>
        <source>Spoken language</source>
        <translation>Gesprochene Sprache</translation>
    </message>
    <message>
        <source>Uses on-device speech only when this language is supported. Automatic uses your Mac's language. If a model is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>Erkennt die Sprache nur dann auf dem Gerät, wenn sie unterstützt wird. „Automatisch“ nimmt die Sprache Ihres Computers. Fehlt ein Modell, bleibt der Ton gesichert, und Sie können OpenRouter wählen.</translation>
    </message>
    <message>
        <source>Speech model</source>
        <translation>Sprachmodell</translation>
    </message>
    <message>
        <source>Speech model ID</source>
        <translation>Kennung des Sprachmodells</translation>
    </message>
    <message>
        <source>Audio is sent to OpenRouter and its selected transcription provider. Provider retention policies apply. Vesko access or your personal key determines which balance is used.</source>
        <translation>Der Ton wird an OpenRouter und den dort gewählten Transkriptionsanbieter gesendet. Es gelten die Aufbewahrungsregeln der Anbieter. Ob der Zugang über Vesko oder Ihr eigener Schlüssel gewählt ist, bestimmt, wessen Guthaben verwendet wird.</translation>
    </message>
    <message>
        <source>Recordings stop after 5 minutes in this version. Original audio stays on this Mac.</source>
        <translation>In dieser Version enden Aufnahmen nach 5 Minuten. Der Originalton bleibt auf diesem Computer.</translation>
    </message>
    <message>
        <source>Availability and storage</source>
        <translation>Verfügbarkeit und Speicher</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Bei der Anmeldung starten</translation>
    </message>
    <message>
        <source>macOS approval is needed in Login Items.</source>
        <translation>Ihr Desktop muss Vesko unter den Startprogrammen zulassen.</translation>
    </message>
    <message>
        <source>Open Login Items</source>
        <translation>Startprogramme öffnen</translation>
    </message>
    <message>
        <source>Open data folder</source>
        <translation>Datenordner öffnen</translation>
    </message>
    <message>
        <source>Recordings and notes are stored locally. Export individual notes as Markdown from the note menu. Cloud sync is not enabled.</source>
        <translation>Aufnahmen und Notizen liegen auf diesem Computer. Einzelne Notizen exportieren Sie im Menü der Notiz als Markdown. Ein Abgleich über die Cloud ist nicht eingeschaltet.</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Übersetzung</translation>
    </message>
    <message>
        <source>Translate dictation into</source>
        <translation>Diktate übersetzen in</translation>
    </message>
    <message>
        <source>Text model ID</source>
        <translation>Kennung des Textmodells</translation>
    </message>
    <message>
        <source>Off by default. When on, each transcript is sent to the text model below for a separate paid request. The original transcript stays saved with the recording.</source>
        <translation>Anfangs ausgeschaltet. Eingeschaltet wird jedes Transkript in einer eigenen kostenpflichtigen Anfrage an das Textmodell unten gesendet. Das ursprüngliche Transkript bleibt bei der Aufnahme gesichert.</translation>
    </message>
    <message>
        <source>Optional AI cleanup</source>
        <translation>KI-Überarbeitung nach Wunsch</translation>
    </message>
    <message>
        <source>Clean up punctuation and repeated words</source>
        <translation>Zeichensetzung und wiederholte Wörter bereinigen</translation>
    </message>
    <message>
        <source>Suggested text models</source>
        <translation>Vorgeschlagene Textmodelle</translation>
    </message>
    <message>
        <source>Adds a separate paid request. With Apple speech, only the transcript is sent for cleanup. The original transcript stays available.</source>
        <translation>Kommt als eigene kostenpflichtige Anfrage hinzu. Bei Erkennung auf dem Gerät wird nur das Transkript zur Überarbeitung gesendet. Das ursprüngliche Transkript bleibt verfügbar.</translation>
    </message>
    <message>
        <source>Vesko Settings</source>
        <translation>Vesko-Einstellungen</translation>
    </message>
    <message>
        <source>Personal dictionary</source>
        <translation>Persönliches Wörterbuch</translation>
    </message>
    <message>
        <source>Use personal dictionary</source>
        <translation>Persönliches Wörterbuch verwenden</translation>
    </message>
    <message>
        <source>Learn from corrected dictation</source>
        <translation>Aus korrigierten Diktaten lernen</translation>
    </message>
    <message>
        <source>Learning watches only the fragment Vesko pasted into the same focused field, for up to two minutes. Return followed by a cleared field is used as its send signal. Similar word corrections are enabled automatically; other replacements are saved as suggestions. For other send buttons, review the last corrections in Dictionary. Nothing is learned from secure or unreadable fields.</source>
        <translation>Beobachtet wird höchstens zwei Minuten lang nur der Abschnitt, den Vesko in dasselbe Feld eingefügt hat. Die Eingabetaste und ein danach geleertes Feld gelten als Absenden. Korrekturen ähnlicher Wörter werden von selbst eingeschaltet, andere Ersetzungen als Vorschläge gesichert. Wird über einen Knopf gesendet, prüfen Sie die letzten Korrekturen im Wörterbuch. Aus geschützten oder nicht lesbaren Feldern wird nichts gelernt.</translation>
    </message>
    <message>
        <source>Open Dictionary</source>
        <translation>Wörterbuch öffnen</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Berechtigungen</translation>
    </message>
    <message>
        <source>Microphone is used only while Recording. Accessibility checks the paste destination and, when learning is enabled, its inserted fragment. Input Monitoring observes Fn and a Return send signal; keystrokes are not saved.</source>
        <translation>Das Mikrofon wird nur während der Aufnahme benutzt. Über die Barrierefreiheit wird das Ziel des Einfügens geprüft und, wenn das Lernen eingeschaltet ist, der eingefügte Abschnitt. Vesko achtet auf der Tastatur auf die eigene Taste und auf die Eingabetaste als Zeichen des Absendens; Tastenanschläge werden nicht gesichert.</translation>
    </message>
    <message>
        <source>Open Privacy &amp; Security</source>
        <translation>Datenschutzeinstellungen öffnen</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Datenschutz</translation>
    </message>
    <message>
        <source>Share anonymous usage analytics</source>
        <translation>Anonyme Nutzungsstatistik teilen</translation>
    </message>
    <message>
        <source>Enter a valid email address.</source>
        <translation>Geben Sie eine gültige E-Mail-Adresse ein.</translation>
    </message>
    <message>
        <source>That code is not correct. Check the latest email and try again.</source>
        <translation>Dieser Code stimmt nicht. Sehen Sie in der neuesten E-Mail nach und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>This code has expired. Request a new one.</source>
        <translation>Dieser Code ist abgelaufen. Fordern Sie einen neuen an.</translation>
    </message>
    <message>
        <source>Too many attempts. Request a new code.</source>
        <translation>Zu viele Versuche. Fordern Sie einen neuen Code an.</translation>
    </message>
    <message>
        <source>Too many requests. Wait a few minutes and try again.</source>
        <translation>Zu viele Anfragen. Warten Sie einige Minuten und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>This sign-in method is not available yet. Choose another one.</source>
        <translation>Diese Art der Anmeldung gibt es noch nicht. Wählen Sie eine andere.</translation>
    </message>
    <message>
        <source>Sign-in was cancelled.</source>
        <translation>Die Anmeldung wurde abgebrochen.</translation>
    </message>
    <message>
        <source>Your session has ended. Sign in again.</source>
        <translation>Ihre Sitzung ist zu Ende. Melden Sie sich wieder an.</translation>
    </message>
    <message>
        <source>You are offline. Your notes stay on this Mac. Reconnect to sign in.</source>
        <translation>Sie sind offline. Ihre Notizen bleiben auf diesem Computer. Stellen Sie die Verbindung wieder her, um sich anzumelden.</translation>
    </message>
    <message>
        <source>Vesko could not reach its account service. Try again in a moment.</source>
        <translation>Vesko konnte seinen Kontodienst nicht erreichen. Versuchen Sie es gleich noch einmal.</translation>
    </message>
    <message>
        <source>Capture was interrupted. The original file may be recovered or retried.</source>
        <translation>Die Aufnahme wurde unterbrochen. Die Originaldatei lässt sich vielleicht retten oder noch einmal transkribieren.</translation>
    </message>
    <message>
        <source>Untitled note</source>
        <translation>Notiz ohne Titel</translation>
    </message>
    <message>
        <source>Voice capture</source>
        <translation>Sprachaufnahme</translation>
    </message>
    <message>
        <source>Dictation</source>
        <translation>Diktat</translation>
    </message>
    <message>
        <source>Voice note</source>
        <translation>Sprachnotiz</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Aufnahme läuft</translation>
    </message>
    <message>
        <source>Audio saved</source>
        <translation>Ton gesichert</translation>
    </message>
    <message>
        <source>Transcribing</source>
        <translation>Transkription läuft</translation>
    </message>
    <message>
        <source>Transcribing: %1 %</source>
        <translation>Transkription: %1 %</translation>
    </message>
    <message>
        <source>Transcribed</source>
        <translation>Transkribiert</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Fehlgeschlagen</translation>
    </message>
    <message>
        <source>Interrupted</source>
        <translation>Unterbrochen</translation>
    </message>
    <message>
        <source>In progress</source>
        <translation>In Arbeit</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Enter a project name between 1 and 80 characters.</source>
        <translation>Geben Sie einen Projektnamen mit 1 bis 80 Zeichen ein.</translation>
    </message>
    <message>
        <source>A project with this name already exists.</source>
        <translation>Ein Projekt mit diesem Namen gibt es schon.</translation>
    </message>
    <message>
        <source>Enter two different terms between 1 and 80 characters. The dictionary holds up to 1,000 terms.</source>
        <translation>Geben Sie zwei verschiedene Begriffe mit 1 bis 80 Zeichen ein. Das Wörterbuch fasst bis zu 1 000 Begriffe.</translation>
    </message>
    <message>
        <source>This recognized term is already in your dictionary. Edit its existing entry.</source>
        <translation>Dieser erkannte Begriff steht schon in Ihrem Wörterbuch. Bearbeiten Sie den vorhandenen Eintrag.</translation>
    </message>
    <message>
        <source>This item is no longer available.</source>
        <translation>Dieses Element gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>The recording path is invalid. The library was preserved.</source>
        <translation>Der Pfad der Aufnahme ist ungültig. Die Bibliothek blieb unverändert.</translation>
    </message>
    <message>
        <source>This library was made by a newer Vesko. Update the app before opening it.</source>
        <translation>Diese Bibliothek stammt von einem neueren Vesko. Aktualisieren Sie das Programm, bevor Sie sie öffnen.</translation>
    </message>
    <message>
        <source>The library could not be read. Your files were preserved. Open the data folder to recover its backup.</source>
        <translation>Die Bibliothek ließ sich nicht lesen. Ihre Dateien sind erhalten. Öffnen Sie den Datenordner, um die Sicherungskopie zurückzuholen.</translation>
    </message>
    <message>
        <source>Vesko is already using this library. Open the running app instead.</source>
        <translation>Vesko verwendet diese Bibliothek bereits. Öffnen Sie das Programm, das schon läuft.</translation>
    </message>
    <message>
        <source>No speech was returned. Your audio is saved. You can retry with another model.</source>
        <translation>Es wurde keine Sprache erkannt. Ihr Ton ist gesichert. Sie können es mit einem anderen Modell noch einmal versuchen.</translation>
    </message>
    <message>
        <source>Add your OpenRouter key in Settings. Your audio stays saved.</source>
        <translation>Tragen Sie Ihren OpenRouter-Schlüssel in den Einstellungen ein. Ihr Ton bleibt gesichert.</translation>
    </message>
    <message>
        <source>Allow OpenRouter processing in Settings, or choose Apple on-device speech. Your original stays saved.</source>
        <translation>Erlauben Sie in den Einstellungen die Verarbeitung durch OpenRouter, oder wählen Sie die Erkennung auf dem Gerät. Ihr Original bleibt gesichert.</translation>
    </message>
    <message>
        <source>Choose a model in Settings.</source>
        <translation>Wählen Sie in den Einstellungen ein Modell.</translation>
    </message>
    <message>
        <source>This audio is too large for one request. The original is saved. Use a shorter recording.</source>
        <translation>Dieser Ton ist zu groß für eine Anfrage. Das Original ist gesichert. Nehmen Sie kürzer auf.</translation>
    </message>
    <message>
        <source>The provider returned an unreadable result. Your audio is saved.</source>
        <translation>Der Anbieter hat ein unlesbares Ergebnis geliefert. Ihr Ton ist gesichert.</translation>
    </message>
    <message>
        <source>Vesko could not save this change. Check free disk space and access to the data folder.</source>
        <translation>Vesko konnte diese Änderung nicht sichern. Prüfen Sie den freien Speicherplatz und den Zugriff auf den Datenordner.</translation>
    </message>
    <message>
        <source>OpenRouter rejected this key. Check it in Settings.</source>
        <translation>OpenRouter hat diesen Schlüssel abgelehnt. Prüfen Sie ihn in den Einstellungen.</translation>
    </message>
    <message>
        <source>OpenRouter needs more credit. Top up your account, then retry.</source>
        <translation>OpenRouter braucht mehr Guthaben. Laden Sie Ihr Konto auf und versuchen Sie es dann noch einmal.</translation>
    </message>
    <message>
        <source>The provider is busy or its limit was reached. Try again later.</source>
        <translation>Der Anbieter ist ausgelastet, oder sein Limit ist erreicht. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The provider could not complete this request. Your audio is saved. Try again later.</source>
        <translation>Der Anbieter konnte diese Anfrage nicht ausführen. Ihr Ton ist gesichert. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>Translation was unavailable. The original transcript was kept.</source>
        <translation>Die Übersetzung war nicht verfügbar. Das ursprüngliche Transkript blieb erhalten.</translation>
    </message>
    <message>
        <source>AI cleanup was unavailable. The original transcript was kept.</source>
        <translation>Die KI-Überarbeitung war nicht verfügbar. Das ursprüngliche Transkript blieb erhalten.</translation>
    </message>
    <message>
        <source>Sign in to use Vesko Plus. Your audio is saved.</source>
        <translation>Melden Sie sich an, um Vesko Plus zu verwenden. Ihr Ton ist gesichert.</translation>
    </message>
    <message>
        <source>Vesko Plus models are not available yet. Your audio is saved. Choose Apple on-device speech or your own key.</source>
        <translation>Die Modelle von Vesko Plus gibt es noch nicht. Ihr Ton ist gesichert. Wählen Sie die Erkennung auf dem Gerät oder Ihren eigenen Schlüssel.</translation>
    </message>
    <message>
        <source>This month's Vesko Plus allowance is used up. Your audio is saved. It renews at the start of next month.</source>
        <translation>Das Kontingent von Vesko Plus für diesen Monat ist verbraucht. Ihr Ton ist gesichert. Zu Beginn des nächsten Monats gibt es ein neues.</translation>
    </message>
    <message>
        <source>Today's Vesko Plus limit is reached. Your audio is saved. Try again tomorrow.</source>
        <translation>Das heutige Limit von Vesko Plus ist erreicht. Ihr Ton ist gesichert. Versuchen Sie es morgen noch einmal.</translation>
    </message>
    <message>
        <source>Vesko Plus paused cloud requests for a while after unusually heavy use. Your audio is saved. Try again later.</source>
        <translation>Vesko Plus nimmt nach ungewöhnlich starker Nutzung eine Zeit lang keine Anfragen an. Ihr Ton ist gesichert. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>Vesko Plus is busy right now. Your audio is saved. Try again later.</source>
        <translation>Vesko Plus ist gerade ausgelastet. Ihr Ton ist gesichert. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>The result did not arrive. Your audio is saved. Vesko did not repeat the request, so you are not charged twice; retry when you are ready.</source>
        <translation>Das Ergebnis ist nicht angekommen. Ihr Ton ist gesichert. Vesko hat die Anfrage nicht wiederholt, damit Sie nicht doppelt zahlen; versuchen Sie es noch einmal, wenn Sie so weit sind.</translation>
    </message>
    <message>
        <source>This request already finished once. Retry to transcribe it again.</source>
        <translation>Diese Anfrage wurde schon einmal abgeschlossen. Versuchen Sie es noch einmal, um neu zu transkribieren.</translation>
    </message>
    <message>
        <source>The model refused this request. Your audio is saved. Retry or choose another model.</source>
        <translation>Das Modell hat diese Anfrage abgelehnt. Ihr Ton ist gesichert. Versuchen Sie es noch einmal oder wählen Sie ein anderes Modell.</translation>
    </message>
    <message>
        <source>Vesko Plus returned an unreadable result. Your audio is saved.</source>
        <translation>Vesko Plus hat ein unlesbares Ergebnis geliefert. Ihr Ton ist gesichert.</translation>
    </message>
    <message>
        <source>Apple</source>
        <translation>Apple</translation>
    </message>
    <message>
        <source>Google</source>
        <translation>Google</translation>
    </message>
    <message>
        <source>Email</source>
        <translation>E-Mail</translation>
    </message>
    <message>
        <source>Apple ID with hidden email</source>
        <translation>Apple-ID mit verborgener E-Mail-Adresse</translation>
    </message>
    <message>
        <source>We sent a 6-digit code to %1. It works for 10 minutes.</source>
        <translation>Wir haben einen 6-stelligen Code an %1 gesendet. Er gilt 10 Minuten.</translation>
    </message>
    <message>
        <source>Signed out. Your notes stay on this Mac.</source>
        <translation>Abgemeldet. Ihre Notizen bleiben auf diesem Computer.</translation>
    </message>
    <message>
        <source>Your Vesko account was deleted. Notes and recordings on this Mac were kept.</source>
        <translation>Ihr Vesko-Konto wurde gelöscht. Notizen und Aufnahmen auf diesem Computer blieben erhalten.</translation>
    </message>
    <message>
        <source>Enter the 6-digit code sent to %1</source>
        <translation>Geben Sie den 6-stelligen Code ein, der an %1 gesendet wurde</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>Wird geprüft…</translation>
    </message>
    <message>
        <source>Sign in</source>
        <translation>Anmelden</translation>
    </message>
    <message>
        <source>Opens Google in a private sign-in window</source>
        <translation>Öffnet Google in Ihrem Browser</translation>
    </message>
    <message>
        <source>Google sign-in is not configured in this build</source>
        <translation>Die Anmeldung mit Google ist in dieser Fassung nicht eingerichtet</translation>
    </message>
    <message>
        <source>Allow Speech Recognition for Vesko in System Settings, or choose OpenRouter.</source>
        <translation>Erlauben Sie Vesko in den Einstellungen Ihres Desktops die Spracherkennung, oder wählen Sie OpenRouter.</translation>
    </message>
    <message>
        <source>On-device speech is unavailable for this language. Choose another language or OpenRouter. Your audio is saved.</source>
        <translation>Die Erkennung auf dem Gerät gibt es für diese Sprache nicht. Wählen Sie eine andere Sprache oder OpenRouter. Ihr Ton ist gesichert.</translation>
    </message>
    <message>
        <source>On-device speech is not available right now. Your audio is saved. Try again or choose OpenRouter.</source>
        <translation>Die Erkennung auf dem Gerät ist gerade nicht verfügbar. Ihr Ton ist gesichert. Versuchen Sie es noch einmal oder wählen Sie OpenRouter.</translation>
    </message>
    <message>
        <source>On-device transcription timed out. Your audio is saved.</source>
        <translation>Die Transkription auf dem Gerät hat zu lange gedauert. Ihr Ton ist gesichert.</translation>
    </message>
    <message>
        <source>On-device transcription failed. Your audio is saved. Retry or choose OpenRouter.</source>
        <translation>Die Transkription auf dem Gerät ist fehlgeschlagen. Ihr Ton ist gesichert. Versuchen Sie es noch einmal oder wählen Sie OpenRouter.</translation>
    </message>
    <message>
        <source>Ready to capture</source>
        <translation>Bereit zur Aufnahme</translation>
    </message>
    <message>
        <source>Ready to capture. Speech is recognized on this computer, without a key.</source>
        <translation>Bereit zur Aufnahme. Sprache wird auf diesem Computer erkannt, ohne Schlüssel.</translation>
    </message>
    <message>
        <source>Ready to capture. Speech is recognized on this computer until your password store (keyring) says whether it holds a key.</source>
        <translation>Bereit zur Aufnahme. Sprache wird auf diesem Computer erkannt, bis Ihr Passwortspeicher (Schlüsselbund) sagt, ob er einen Schlüssel enthält.</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Starting microphone</source>
        <translation>Mikrofon wird gestartet</translation>
    </message>
    <message>
        <source>Allow Microphone for Vesko in System Settings &gt; Privacy &amp; Security &gt; Microphone, then try again.</source>
        <translation>Erlauben Sie Vesko in den Einstellungen Ihres Desktops das Mikrofon und versuchen Sie es dann noch einmal.</translation>
    </message>
    <message>
        <source>Recording. Press the shortcut again to finish.</source>
        <translation>Aufnahme läuft. Drücken Sie das Tastenkürzel zum Beenden noch einmal.</translation>
    </message>
    <message>
        <source>No sound comes from the microphone. What was said before is kept; the recording goes on when sound comes again.</source>
        <translation>Vom Mikrofon kommt kein Ton. Was vorher gesagt wurde, ist gesichert; die Aufnahme geht weiter, sobald wieder Ton kommt.</translation>
    </message>
    <message>
        <source>Original saved. Transcribing…</source>
        <translation>Original gesichert. Transkription läuft…</translation>
    </message>
    <message>
        <source>The model catalog could not be loaded. Your current choices were kept.</source>
        <translation>Die Liste der Modelle ließ sich nicht laden. Ihre jetzige Wahl blieb erhalten.</translation>
    </message>
    <message>
        <source>Model catalog updated</source>
        <translation>Liste der Modelle aktualisiert</translation>
    </message>
    <message>
        <source>Recording cancelled. The audio is saved.</source>
        <translation>Aufnahme abgebrochen. Der Ton ist gespeichert.</translation>
    </message>
    <message>
        <source>Fn combination used. Audio saved without transcription.</source>
        <translation>Tastenkombination benutzt. Ton ohne Transkription gesichert.</translation>
    </message>
    <message>
        <source>%1 will be used for dictation</source>
        <translation>Diktiert wird auf %1</translation>
    </message>
    <message>
        <source>Vesko will use it for dictation. Another language transcribes the last recording again.</source>
        <translation>Vesko verwendet sie beim Diktieren. Eine andere Sprache transkribiert die letzte Aufnahme neu.</translation>
    </message>
    <message>
        <source>Vesko will use it for dictation.</source>
        <translation>Vesko verwendet sie beim Diktieren.</translation>
    </message>
    <message numerus="yes">
        <source>Added %1 dictionary corrections. Review them in Dictionary.</source>
        <translation>
            <numerusform>%1 Korrektur ins Wörterbuch aufgenommen. Prüfen Sie sie im Wörterbuch.</numerusform>
            <numerusform>%1 Korrekturen ins Wörterbuch aufgenommen. Prüfen Sie sie im Wörterbuch.</numerusform>
        </translation>
    </message>
    <message>
        <source>Dictionary saved</source>
        <translation>Wörterbuch gesichert</translation>
    </message>
    <message>
        <source>This note has no text to copy yet</source>
        <translation>Diese Notiz enthält noch keinen Text zum Kopieren</translation>
    </message>
    <message>
        <source>Note copied to clipboard</source>
        <translation>Notiz in die Zwischenablage kopiert</translation>
    </message>
    <message>
        <source>Markdown exported</source>
        <translation>Markdown exportiert</translation>
    </message>
    <message>
        <source>Saved to your note</source>
        <translation>In Ihrer Notiz gesichert</translation>
    </message>
    <message>
        <source>Copied. Paste sent to the original field.</source>
        <translation>Kopiert. Das Einfügen wurde an das ursprüngliche Feld gesendet.</translation>
    </message>
    <message>
        <source>The text is saved, but the clipboard could not be updated. Copy it from your note.</source>
        <translation>Der Text ist gesichert, aber die Zwischenablage ließ sich nicht ändern. Kopieren Sie ihn aus Ihrer Notiz.</translation>
    </message>
    <message>
        <source>Copied to clipboard</source>
        <translation>In die Zwischenablage kopiert</translation>
    </message>
    <message>
        <source>Audio saved. Transcription needs attention.</source>
        <translation>Ton gesichert. Um die Transkription müssen Sie sich kümmern.</translation>
    </message>
    <message>
        <source>Translation needs an OpenRouter key. The original transcript was kept.</source>
        <translation>Zum Übersetzen wird ein OpenRouter-Schlüssel gebraucht. Das ursprüngliche Transkript blieb erhalten.</translation>
    </message>
    <message>
        <source>AI cleanup needs an OpenRouter key. The original transcript was kept.</source>
        <translation>Zur KI-Überarbeitung wird ein OpenRouter-Schlüssel gebraucht. Das ursprüngliche Transkript blieb erhalten.</translation>
    </message>
    <message>
        <source>Recording stopped unexpectedly. Your original file was kept.</source>
        <translation>Die Aufnahme endete unerwartet. Ihre Originaldatei blieb erhalten.</translation>
    </message>
    <message>
        <source>Recording was interrupted by an audio error. Your original file was kept.</source>
        <translation>Die Aufnahme wurde durch einen Tonfehler unterbrochen. Ihre Originaldatei blieb erhalten.</translation>
    </message>
    <message>
        <source>The microphone could not start. Check your audio input and try again.</source>
        <translation>Das Mikrofon ließ sich nicht starten. Prüfen Sie den Toneingang und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The network is unavailable. Your recording is saved. Reconnect and retry.</source>
        <translation>Das Netz ist nicht verfügbar. Ihre Aufnahme ist gesichert. Stellen Sie die Verbindung wieder her und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The provider timed out. Your recording is saved. A retry may incur another provider charge.</source>
        <translation>Der Anbieter hat nicht rechtzeitig geantwortet. Ihre Aufnahme ist gesichert. Ein neuer Versuch kann beim Anbieter noch einmal Kosten verursachen.</translation>
    </message>
    <message>
        <source>The network request could not finish. Your recording is saved. Retry when ready.</source>
        <translation>Die Anfrage über das Netz wurde nicht fertig. Ihre Aufnahme ist gesichert. Versuchen Sie es noch einmal, wenn Sie so weit sind.</translation>
    </message>
    <message>
        <source>Vesko could not complete this operation. Your saved files were preserved. Check the data folder and try again.</source>
        <translation>Vesko konnte diesen Vorgang nicht abschließen. Ihre gesicherten Dateien sind erhalten. Prüfen Sie den Datenordner und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>1 term</source>
        <translation>1 Begriff</translation>
    </message>
    <message numerus="yes">
        <source>%1 terms</source>
        <translation>
            <numerusform>%1 Begriff</numerusform>
            <numerusform>%1 Begriffe</numerusform>
        </translation>
    </message>
    <message>
        <source>No matching terms</source>
        <translation>Keine passenden Begriffe</translation>
    </message>
    <message>
        <source>Try another search.</source>
        <translation>Suchen Sie nach etwas anderem.</translation>
    </message>
    <message>
        <source>Your personal dictionary</source>
        <translation>Ihr persönliches Wörterbuch</translation>
    </message>
    <message>
        <source>Add names, product terms and frequent corrections. Similar spelling fixes can be learned after you edit and send a pasted dictation.</source>
        <translation>Tragen Sie Namen, Produktbegriffe und häufige Korrekturen ein. Ähnliche Schreibweisen kann Vesko lernen, nachdem Sie ein eingefügtes Diktat bearbeitet und gesendet haben.</translation>
    </message>
    <message>
        <source>Save term</source>
        <translation>Begriff sichern</translation>
    </message>
    <message>
        <source>Add term</source>
        <translation>Begriff hinzufügen</translation>
    </message>
    <message numerus="yes">
        <source>Last edited paste: %1 word corrections</source>
        <translation>
            <numerusform>Zuletzt bearbeiteter Text: %1 korrigiertes Wort</numerusform>
            <numerusform>Zuletzt bearbeiteter Text: %1 korrigierte Wörter</numerusform>
        </translation>
    </message>
    <message>
        <source>Added by you</source>
        <translation>Von Ihnen hinzugefügt</translation>
    </message>
    <message>
        <source>Learned spelling</source>
        <translation>Gelernte Schreibweise</translation>
    </message>
    <message>
        <source>Suggestion, review before enabling</source>
        <translation>Vorschlag, vor dem Einschalten prüfen</translation>
    </message>
    <message>
        <source>Copied. Allow Accessibility for Vesko in System Settings to paste automatically.</source>
        <translation>Kopiert. Schalten Sie in den Einstellungen Ihres Desktops die Barrierefreiheit ein, damit von selbst eingefügt wird.</translation>
    </message>
    <message>
        <source>Copied. No text field was focused when you started. Paste it with Command V.</source>
        <translation>Kopiert. Als Sie begannen, hatte kein Textfeld den Fokus. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>Copied. Vesko could not see which field was in use, so it did not paste. Paste it with Command V.</source>
        <translation>Kopiert. Vesko konnte nicht sehen, welches Feld benutzt wurde, und hat deshalb nicht eingefügt. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>this desktop</source>
        <translation>diese Arbeitsumgebung</translation>
    </message>
    <message>
        <source>%1 gives programs no shortcuts of their own. In its configuration, let keys of your choice run “vesko --toggle”.</source>
        <translation>%1 gibt Programmen keine eigenen Tastenkürzel. Lassen Sie dort Tasten Ihrer Wahl „vesko --toggle“ ausführen.</translation>
    </message>
    <message>
        <source>%1 shows no program the keys that are pressed in another one.</source>
        <translation>%1 zeigt keinem Programm die Tasten, die in einem anderen gedrückt werden.</translation>
    </message>
    <message>
        <source>Without Xwayland %1 lets Vesko copy and paste nothing while another program is in use. The text is in your note.</source>
        <translation>Ohne Xwayland lässt %1 Vesko nichts kopieren und einfügen, solange ein anderes Programm benutzt wird. Der Text steht in Ihrer Notiz.</translation>
    </message>
    <message>
        <source>On %1 Vesko can't paste into other programs. Text is copied, and you paste it yourself.</source>
        <translation>Unter %1 kann Vesko nicht in andere Programme einfügen. Der Text wird kopiert, und Sie fügen ihn selbst ein.</translation>
    </message>
    <message>
        <source>%1 does not show Vesko when you press Return, so your corrections wait for your review.</source>
        <translation>%1 zeigt Vesko nicht, wann Sie die Eingabetaste drücken; deshalb warten Ihre Korrekturen auf Ihre Durchsicht.</translation>
    </message>
    <message>
        <source>Not offered here</source>
        <translation>Hier nicht verfügbar</translation>
    </message>
    <message>
        <source>Copied. You moved to another field, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Kopiert. Sie sind in ein anderes Feld gegangen, deshalb hat Vesko nicht eingefügt. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>Copied. This field does not accept automatic paste. Paste it with Command V.</source>
        <translation>Kopiert. In dieses Feld lässt sich nicht von selbst einfügen. Fügen Sie den Text mit Strg+V ein, in GVim mit Editieren &gt; Einfügen.</translation>
    </message>
    <message>
        <source>Copied. No active window was known when you started, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Kopiert. Als Sie begannen, war kein aktives Fenster bekannt, deshalb hat Vesko nicht eingefügt. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>A running dictation is being saved</source>
        <translation>Ein laufendes Diktat wird gesichert</translation>
    </message>
    <message>
        <source>Copied. A key was held down, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Kopiert. Eine Taste war gedrückt, deshalb hat Vesko nicht eingefügt. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>Copied. Another program was holding the keyboard, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Kopiert. Ein anderes Programm hielt die Tastatur, deshalb hat Vesko nicht eingefügt. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>Copied. Paste was sent, but the field does not show the text. If it is missing, paste it with Command V.</source>
        <translation>Kopiert. Das Einfügen wurde gesendet, aber das Feld zeigt den Text nicht. Fehlt er, fügen Sie ihn mit Strg+V ein.</translation>
    </message>
    <message>
        <source>Copied. Shift, Alt or another such key was latched or locked, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Kopiert. Umschalt, Alt oder eine andere solche Taste war eingerastet, deshalb hat Vesko nicht eingefügt. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>Copied. Slow keys are switched on in the desktop's settings, so Vesko can't paste. Paste it with Command V.</source>
        <translation>Kopiert. In den Einstellungen der Arbeitsumgebung sind langsame Tasten eingeschaltet, deshalb kann Vesko nicht einfügen. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>Copied. The paste shortcut could not be sent. Paste it with Command V.</source>
        <translation>Kopiert. Das Tastenkürzel zum Einfügen konnte nicht gesendet werden. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>Copied. The session was locked, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Kopiert. Die Sitzung war gesperrt, deshalb hat Vesko nicht eingefügt. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>Copied. This program does not show its text fields to Vesko. Paste it with Command V or the program's own shortcut.</source>
        <translation>Kopiert. Dieses Programm zeigt Vesko seine Textfelder nicht. Fügen Sie den Text mit Strg+V ein, im Terminal mit Strg+Umschalt+V, in Emacs mit Strg+Y.</translation>
    </message>
    <message>
        <source>Copied. Vesko does not paste where letters are hidden, as in a password.</source>
        <translation>Kopiert. Wo Zeichen verborgen werden, wie bei einem Passwort, fügt Vesko nicht ein.</translation>
    </message>
    <message>
        <source>Copied. You started in Vesko itself, not in another program. Paste it with Command V.</source>
        <translation>Kopiert. Sie haben in Vesko selbst begonnen, nicht in einem anderen Programm. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>The download was paused. What has arrived is kept.</source>
        <translation>Das Herunterladen wurde angehalten. Was angekommen ist, bleibt erhalten.</translation>
    </message>
    <message>
        <source>The library is too large. Vesko can open up to 1 GB. Your files were preserved.</source>
        <translation>Die Bibliothek ist zu groß. Vesko kann bis zu 1 GB öffnen. Ihre Dateien sind erhalten geblieben.</translation>
    </message>
    <message>
        <source>The model arrived damaged and was removed. Try again.</source>
        <translation>Das Modell kam beschädigt an und wurde entfernt. Versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The model can't be reached. What has arrived is kept. Check the connection and try again.</source>
        <translation>Das Modell ist nicht erreichbar. Was angekommen ist, bleibt erhalten. Prüfen Sie die Verbindung und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>The model can't be saved.</source>
        <translation>Das Modell kann nicht gesichert werden.</translation>
    </message>
    <message>
        <source>The server doesn't have this model. Try again later.</source>
        <translation>Der Server hat dieses Modell nicht. Versuchen Sie es später noch einmal.</translation>
    </message>
    <message>
        <source>There isn't enough room on the disk for this model.</source>
        <translation>Auf der Festplatte ist nicht genug Platz für dieses Modell.</translation>
    </message>
    <message>
        <source>Copied. More than two minutes passed, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Kopiert. Es vergingen mehr als zwei Minuten, deshalb hat Vesko nicht eingefügt. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>Copied. Paste it when you are ready.</source>
        <translation>Kopiert. Fügen Sie den Text ein, wenn Sie so weit sind.</translation>
    </message>
    <message>
        <source>Trash is empty</source>
        <translation>Der Papierkorb ist leer</translation>
    </message>
    <message>
        <source>Notes you move to Trash can be restored here.</source>
        <translation>Notizen, die Sie in den Papierkorb legen, lassen sich hier wiederherstellen.</translation>
    </message>
    <message>
        <source>No matching notes</source>
        <translation>Keine passenden Notizen</translation>
    </message>
    <message>
        <source>Try another search or clear the search field.</source>
        <translation>Suchen Sie nach etwas anderem oder leeren Sie das Suchfeld.</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>Suche leeren</translation>
    </message>
    <message>
        <source>A place for your next thought</source>
        <translation>Ein Platz für Ihren nächsten Gedanken</translation>
    </message>
    <message>
        <source>Record your voice or start a text note. Your originals stay on this Mac.</source>
        <translation>Nehmen Sie Ihre Stimme auf oder beginnen Sie eine Textnotiz. Ihre Originale bleiben auf diesem Computer.</translation>
    </message>
    <message>
        <source>Recording %1</source>
        <translation>Aufnahme läuft %1</translation>
    </message>
    <message>
        <source>Finish recording</source>
        <translation>Aufnahme beenden</translation>
    </message>
    <message>
        <source>Record note</source>
        <translation>Notiz aufnehmen</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>In Arbeit</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Gestern</translation>
    </message>
    <message>
        <source>Provider cost not reported</source>
        <translation>Kosten vom Anbieter nicht angegeben</translation>
    </message>
    <message>
        <source>Reported cost: %1</source>
        <translation>Angegebene Kosten: %1</translation>
    </message>
    <message>
        <source>Retry…</source>
        <translation>Noch einmal…</translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation>Schritt %1 von %2</translation>
    </message>
    <message>
        <source>Start using Vesko</source>
        <translation>Vesko verwenden</translation>
    </message>
    <message>
        <source>Get started</source>
        <translation>Los geht’s</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Mikrofon</translation>
    </message>
    <message>
        <source>Records only while you dictate.</source>
        <translation>Nimmt nur auf, während Sie diktieren.</translation>
    </message>
    <message>
        <source>Speech Recognition</source>
        <translation>Spracherkennung</translation>
    </message>
    <message>
        <source>Apple on-device transcription.</source>
        <translation>Transkription auf diesem Computer mit einem installierten Modell.</translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Barrierefreiheit</translation>
    </message>
    <message>
        <source>Input Monitoring</source>
        <translation>Tastatur</translation>
    </message>
    <message>
        <source>Notices the Fn key. Keystrokes are not saved.</source>
        <translation>Bemerkt die Diktiertaste. Tastenanschläge werden nicht gesichert.</translation>
    </message>
    <message>
        <source>Allowed</source>
        <translation>Erlaubt</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>Nicht erlaubt</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Erlauben</translation>
    </message>
    <message>
        <source>Enable Vesko in Accessibility. If it is missing, add Vesko.app from your Applications folder.</source>
        <translation>Die Barrierefreiheit ist für diese Sitzung eingeschaltet. Programme, die schon offen waren, müssen Sie vielleicht neu starten, bevor Vesko in sie einfügen kann.</translation>
    </message>
    <message>
        <source>Enable Vesko in Input Monitoring. If it is missing, use the + button and select Vesko.app. If macOS asks, choose Quit &amp; Reopen. Command Shift Space remains available.</source>
        <translation>Vesko achtet auf die Tastatur, wo der Desktop das Programmen erlaubt. Wählen Sie eine andere Diktiertaste, wenn Ihr Desktop diese verwendet. Das Tastenkürzel geht weiterhin.</translation>
    </message>
    <message>
        <source>Microphone access is ready</source>
        <translation>Der Zugriff auf das Mikrofon ist bereit</translation>
    </message>
    <message>
        <source>Allow Vesko in System Settings &gt; Privacy &amp; Security &gt; Microphone.</source>
        <translation>Kein Mikrofon ließ sich öffnen. Schließen Sie eines an, oder wählen Sie es in den Klangeinstellungen Ihres Desktops aus und schalten Sie es ein.</translation>
    </message>
    <message>
        <source>Vesko could not access your key in Keychain. Unlock your Mac and try again.</source>
        <translation>Vesko kam nicht an den Schlüssel in Ihrem Passwortspeicher (Schlüsselbund). Entsperren Sie ihn und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Function key</source>
        <translation>Fn-Taste</translation>
    </message>
    <message>
        <source>Right Ctrl</source>
        <translation>Strg rechts</translation>
    </message>
    <message>
        <source>Right Alt</source>
        <translation>Alt rechts</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>Rollen</translation>
    </message>
    <message>
        <source>Automatic lets the speech model guess, and a short phrase can come back in the wrong language. After your next dictation Vesko asks which language you speak and remembers it.</source>
        <translation>Bei „Automatisch“ rät das Sprachmodell, und ein kurzer Satz kann in der falschen Sprache zurückkommen. Nach Ihrem nächsten Diktat fragt Vesko, welche Sprache Sie sprechen, und merkt sie sich.</translation>
    </message>
    <message>
        <source>Vesko tells the speech model you speak %1. Choose Automatic if you switch between languages.</source>
        <translation>Vesko sagt dem Sprachmodell, dass Sie %1 sprechen. Wählen Sie „Automatisch“, wenn Sie zwischen Sprachen wechseln.</translation>
    </message>
    <message>
        <source>Saved in Keychain</source>
        <translation>In Ihrem Schlüsselbund gesichert</translation>
    </message>
    <message>
        <source>No key saved</source>
        <translation>Kein Schlüssel gesichert</translation>
    </message>
    <message>
        <source>Enter a replacement key</source>
        <translation>Neuen Schlüssel eingeben</translation>
    </message>
    <message>
        <source>Opening library…</source>
        <translation>Bibliothek wird geöffnet…</translation>
    </message>
    <message>
        <source>Loading models…</source>
        <translation>Modelle werden geladen…</translation>
    </message>
    <message>
        <source>Refresh model catalog</source>
        <translation>Liste der Modelle aktualisieren</translation>
    </message>
    <message>
        <source>Analytics is not configured in this build. No events are sent.</source>
        <translation>Die Nutzungsstatistik ist in dieser Fassung nicht eingerichtet. Es werden keine Ereignisse gesendet.</translation>
    </message>
    <message>
        <source>Optional usage events go to %1. They include a random analytics identifier and app version, never your audio, notes, project names, filenames, receipts or keys. Turning this off clears unsent events and removes the local identifier. It does not erase events already sent.</source>
        <translation>Wenn Sie es erlauben, gehen Nutzungsereignisse an %1. Sie enthalten eine zufällige Kennung und die Version des Programms, nie Ihren Ton, Notizen, Projektnamen, Dateinamen, Belege oder Schlüssel. Beim Ausschalten werden nicht gesendete Ereignisse und die Kennung auf diesem Computer gelöscht. Schon gesendete Ereignisse werden nicht gelöscht.</translation>
    </message>
    <message>
        <source>Key saved in Keychain</source>
        <translation>Schlüssel in Ihrem Schlüsselbund gesichert</translation>
    </message>
    <message>
        <source>Key removed</source>
        <translation>Schlüssel entfernt</translation>
    </message>
    <message>
        <source>Launch at login could not be changed. Check Login Items in System Settings.</source>
        <translation>Der Start bei der Anmeldung ließ sich nicht ändern. Sehen Sie in den Einstellungen Ihres Desktops bei den Startprogrammen nach.</translation>
    </message>
    <message>
        <source>Apple on-device</source>
        <translation>Auf dem Gerät</translation>
    </message>
    <message>
        <source>OpenRouter</source>
        <translation>OpenRouter</translation>
    </message>
    <message>
        <source>Vesko access</source>
        <translation>Zugang über Vesko</translation>
    </message>
    <message>
        <source>My personal key</source>
        <translation>Mein eigener Schlüssel</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Click once to stop. Drag to move. Right-click for the menu.</source>
        <translation>Einmal klicken beendet. Ziehen verschiebt. Rechtsklick für das Menü.</translation>
    </message>
    <message>
        <source>Dictionary…</source>
        <translation>Wörterbuch…</translation>
    </message>
    <message>
        <source>Welcome Tour…</source>
        <translation>Rundgang…</translation>
    </message>
    <message>
        <source>About Vesko</source>
        <translation>Über Vesko</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No speech was heard. The recording is saved.</source>
        <translation>Es war keine Sprache zu hören. Die Aufnahme ist gesichert.</translation>
    </message>
    <message>
        <source>The speech engine that you chose isn't there. Choose one in Settings. Your audio is saved.</source>
        <translation>Die gewählte Spracherkennung ist nicht da. Wählen Sie eine in den Einstellungen. Ihre Aufnahme ist gesichert.</translation>
    </message>
    <message>
        <source>Vesko is busy. Try again in a moment.</source>
        <translation>Vesko ist beschäftigt. Versuchen Sie es gleich noch einmal.</translation>
    </message>
    <message>
        <source>This engine isn't there.</source>
        <translation>Diese Spracherkennung ist nicht da.</translation>
    </message>
    <message>
        <source>“%1”, %2 seconds after the end</source>
        <translation>„%1“, %2 Sekunden nach dem Ende</translation>
    </message>
    <message>
        <source>Loading %1: %2 %</source>
        <translation>%1 wird geladen: %2 %</translation>
    </message>
    <message>
        <source>The model %1 is there.</source>
        <translation>Das Modell %1 ist da.</translation>
    </message>
    <message>
        <source>A program of your own</source>
        <translation>Ein eigenes Programm</translation>
    </message>
    <message>
        <source>Any program that prints the words of a WAV file.</source>
        <translation>Jedes Programm, das die Wörter einer WAV-Datei ausgibt.</translation>
    </message>
    <message>
        <source>A server of your own</source>
        <translation>Ein eigener Server</translation>
    </message>
    <message>
        <source>Any server with OpenAI's way to transcribe. The sound leaves this computer unless the server runs on it.</source>
        <translation>Jeder Server, der wie der von OpenAI transkribiert. Der Ton verlässt diesen Computer, wenn der Server nicht auf ihm läuft.</translation>
    </message>
    <message>
        <source>finds out the language</source>
        <translation>erkennt die Sprache selbst</translation>
    </message>
    <message>
        <source>lower case, no punctuation</source>
        <translation>Kleinschreibung, ohne Satzzeichen</translation>
    </message>
    <message>
        <source>Name a program and its arguments, with {wav} where the sound's file belongs. {language} and {model} stand for the language and the model.</source>
        <translation>Nennen Sie ein Programm und seine Argumente, mit {wav} an der Stelle der Tondatei. {language} und {model} stehen für Sprache und Modell.</translation>
    </message>
    <message>
        <source>Enter an address that begins with https://. Plain http:// is for servers on this computer.</source>
        <translation>Geben Sie eine Adresse ein, die mit https:// beginnt. Einfaches http:// ist nur für Server auf diesem Computer.</translation>
    </message>
    <message>
        <source>The chosen engine isn't there. Until you choose another, recordings are only saved.</source>
        <translation>Die gewählte Spracherkennung ist nicht da. Bis Sie eine andere wählen, werden Aufnahmen nur gesichert.</translation>
    </message>
    <message>
        <source>For other languages, punctuation and far fewer wrong words, install whisper.cpp (its program whisper-cli is found by itself) and get a model below.</source>
        <translation>Für andere Sprachen, Satzzeichen und viel weniger falsche Wörter installieren Sie whisper.cpp (sein Programm whisper-cli wird von selbst gefunden) und laden unten ein Modell.</translation>
    </message>
    <message>
        <source>Speech on this computer</source>
        <translation>Sprache auf diesem Computer</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>In Gebrauch</translation>
    </message>
    <message>
        <source>Try</source>
        <translation>Testen</translation>
    </message>
    <message>
        <source>Done speaking</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Speak a sentence now. Nothing of it is stored.</source>
        <translation>Sprechen Sie jetzt einen Satz. Nichts davon wird gespeichert.</translation>
    </message>
    <message>
        <source>Looking for engines…</source>
        <translation>Spracherkennungen werden gesucht…</translation>
    </message>
    <message>
        <source>Server address</source>
        <translation>Serveradresse</translation>
    </message>
    <message>
        <source>Model of the server</source>
        <translation>Modell des Servers</translation>
    </message>
    <message>
        <source>Key of the server</source>
        <translation>Schlüssel des Servers</translation>
    </message>
    <message>
        <source>Save the key of the server</source>
        <translation>Schlüssel des Servers sichern</translation>
    </message>
    <message>
        <source>Get a model</source>
        <translation>Modell laden</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Laden</translation>
    </message>
    <message>
        <source>Tell the engine the terms of your dictionary</source>
        <translation>Der Spracherkennung die Begriffe des Wörterbuchs mitteilen</translation>
    </message>
    <message>
        <source>Pause loading</source>
        <translation>Laden anhalten</translation>
    </message>
    <message numerus="yes">
        <source>%1 languages</source>
        <translation>
            <numerusform>%1 Sprache</numerusform>
            <numerusform>%1 Sprachen</numerusform>
        </translation>
    </message>
    <message>
        <source>No password store (keyring) runs here, so Vesko has no place for keys. Start one, such as GNOME Keyring, KWallet or KeePassXC, and try again.</source>
        <translation>Hier läuft kein Passwortspeicher (Schlüsselbund), Vesko hat also keinen Platz für Schlüssel. Starten Sie einen, etwa GNOME Keyring, KWallet oder KeePassXC, und versuchen Sie es erneut.</translation>
    </message>
    <message>
        <source>Audio is sent to OpenRouter and its selected transcription provider. Provider retention policies apply. Your personal key's balance is used.</source>
        <translation>Der Ton wird an OpenRouter und den dort gewählten Transkriptionsanbieter gesendet. Es gelten die Aufbewahrungsregeln des Anbieters. Abgerechnet wird über Ihren eigenen Schlüssel.</translation>
    </message>
    <message>
        <source>The library could not be opened</source>
        <translation>Die Bibliothek konnte nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Vesko found no program for your desktop's settings. Please open them yourself.</source>
        <translation>Vesko hat kein Programm für die Einstellungen Ihres Desktops gefunden. Bitte öffnen Sie sie selbst.</translation>
    </message>
    <message>
        <source>A speech model for %1 is installed.</source>
        <translation>Ein Sprachmodell für %1 ist installiert.</translation>
    </message>
    <message>
        <source>No speech model for %1 is installed. Install the package pocketsphinx-en-us, or choose another engine or OpenRouter in Settings.</source>
        <translation>Für %1 ist kein Sprachmodell installiert. Installieren Sie das Paket pocketsphinx-en-us, oder wählen Sie in den Einstellungen eine andere Erkennung oder OpenRouter.</translation>
    </message>
    <message>
        <source>No speech model for %1 is installed. Choose another engine or OpenRouter in Settings.</source>
        <translation>Für %1 ist kein Sprachmodell installiert. Wählen Sie in den Einstellungen eine andere Erkennung oder OpenRouter.</translation>
    </message>
    <message>
        <source>No speech model</source>
        <translation>Kein Sprachmodell</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Accessibility is on. Vesko can paste into the field you started in.</source>
        <translation>Die Barrierefreiheit ist eingeschaltet. Vesko kann in das Feld einfügen, in dem Sie begonnen haben.</translation>
    </message>
    <message>
        <source>Vesko notices the dictation key.</source>
        <translation>Vesko bemerkt die Diktiertaste.</translation>
    </message>
    <message>
        <source>Moved to Trash</source>
        <translation>In den Papierkorb verschoben</translation>
    </message>
    <message>
        <source>Removed “%1”</source>
        <translation>„%1“ entfernt</translation>
    </message>
    <message>
        <source>Not in this text</source>
        <translation>Nicht in diesem Text</translation>
    </message>
    <message>
        <source>Matches in this text: %1</source>
        <translation>Treffer in diesem Text: %1</translation>
    </message>
    <message>
        <source>Match %1 of %2</source>
        <translation>Treffer %1 von %2</translation>
    </message>
    <message>
        <source>Previous match</source>
        <translation>Voriger Treffer</translation>
    </message>
    <message>
        <source>Next match</source>
        <translation>Nächster Treffer</translation>
    </message>
    <message>
        <source>Version %1, build %2</source>
        <translation>Version %1, Build %2</translation>
    </message>
    <message>
        <source>MIT License</source>
        <translation>MIT-Lizenz</translation>
    </message>
    <message>
        <source>%1 to dictate</source>
        <translation>%1 zum Diktieren</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
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
        <source>Press %1 and speak</source>
        <translation>%1 drücken und sprechen</translation>
    </message>
    <message>
        <source>Press again to finish. Vesko pastes into the field you started in.</source>
        <translation>Nochmals drücken beendet. Vesko fügt den Text in das Feld ein, in dem Sie begonnen haben.</translation>
    </message>
    <message>
        <source>Or press %1</source>
        <translation>Oder %1 drücken</translation>
    </message>
    <message>
        <source>Give the clipboard back after a paste</source>
        <translation>Zwischenablage nach dem Einfügen zurückgeben</translation>
    </message>
    <message>
        <source>What you had copied before, up to 16 MB, is there again once the field shows the dictated text. Where that can&apos;t be seen, the dictated text stays on the clipboard.</source>
        <translation>Was Sie vorher kopiert hatten, bis 16 MB, ist wieder da, sobald das Feld den diktierten Text zeigt. Wo das nicht zu sehen ist, bleibt der diktierte Text in der Zwischenablage.</translation>
    </message>
    <message>
        <source>Pasted into the original field. The clipboard holds what it held before.</source>
        <translation>In das ursprüngliche Feld eingefügt. Die Zwischenablage enthält wieder, was vorher darin war.</translation>
    </message>
    <message>
        <source>%1 is unavailable: another program has it. Use the floating button, or choose another shortcut in the settings.</source>
        <translation>%1 ist nicht verfügbar: Ein anderes Programm hat es belegt. Verwenden Sie den schwebenden Knopf oder wählen Sie in den Einstellungen ein anderes Tastenkürzel.</translation>
    </message>
    <message>
        <source>Global shortcut: %1</source>
        <translation>Globales Tastenkürzel: %1</translation>
    </message>
    <message>
        <source>Press the new shortcut…</source>
        <translation>Neues Tastenkürzel drücken…</translation>
    </message>
    <message>
        <source>%1 can&apos;t be had: another program has it. Choose another shortcut.</source>
        <translation>%1 ist nicht zu haben: Ein anderes Programm hat es belegt. Wählen Sie ein anderes Tastenkürzel.</translation>
    </message>
    <message>
        <source>%1 is what text is pasted with, by Vesko too. Choose another shortcut.</source>
        <translation>Mit %1 wird Text eingefügt, auch von Vesko. Wählen Sie ein anderes Tastenkürzel.</translation>
    </message>
    <message>
        <source>%1 is typed with. A shortcut needs Ctrl, Alt or Super.</source>
        <translation>%1 wird zum Schreiben gebraucht. Ein Tastenkürzel braucht Strg, Alt oder Super.</translation>
    </message>
    <message>
        <source>No shortcut can be made with this key.</source>
        <translation>Mit dieser Taste lässt sich kein Tastenkürzel bilden.</translation>
    </message>
    <message>
        <source>Pastes into the field you started in. Vesko switches it on, and it stays on.</source>
        <translation>Fügt in das Feld ein, in dem Sie begonnen haben. Vesko schaltet sie ein, und sie bleibt eingeschaltet.</translation>
    </message>
    <message>
        <source>This desktop has no accessibility bus, so nothing was turned on. Install the package at-spi2-core, and start the session anew.</source>
        <translation>Dieser Desktop hat keinen Barrierefreiheits-Bus, daher wurde nichts eingeschaltet. Installieren Sie das Paket at-spi2-core und beginnen Sie die Sitzung neu.</translation>
    </message>
    <message>
        <source>Click once to record. Drag to move. Right-click for the menu.</source>
        <translation>Einmal klicken nimmt auf. Ziehen verschiebt. Rechtsklick für das Menü.</translation>
    </message>
    <message>
        <source>Click once to record. Drag to move. Right-click for the menu. Shortcut: %1</source>
        <translation>Einmal klicken nimmt auf. Ziehen verschiebt. Rechtsklick für das Menü. Tastenkürzel: %1</translation>
    </message>
    <message>
        <source>Program and arguments</source>
        <translation>Programm und Argumente</translation>
    </message>
    <message>
        <source>Model of the program</source>
        <translation>Modell des Programms</translation>
    </message>
    <message>
        <source>Cleaning up</source>
        <translation>Wird überarbeitet</translation>
    </message>
    <message>
        <source>Translating</source>
        <translation>Wird übersetzt</translation>
    </message>
    <message>
        <source>Open note</source>
        <translation>Notiz öffnen</translation>
    </message>
    <message>
        <source>To the clipboard</source>
        <translation>In die Zwischenablage</translation>
    </message>
    <message>
        <source>Into %1</source>
        <translation>In %1</translation>
    </message>
    <message>
        <source>Into the field where you began</source>
        <translation>In das Feld, in dem Sie begonnen haben</translation>
    </message>
    <message>
        <source>Export library…</source>
        <translation>Bibliothek exportieren…</translation>
    </message>
    <message>
        <source>Import library…</source>
        <translation>Bibliothek importieren…</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Exporting the library…</source>
        <translation>Bibliothek wird exportiert…</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>Import läuft…</translation>
    </message>
    <message>
        <source>Library exported</source>
        <translation>Bibliothek exportiert</translation>
    </message>
    <message>
        <source>All notes of this archive are here already.</source>
        <translation>Alle Notizen dieses Archivs sind schon hier.</translation>
    </message>
    <message>
        <source>Export dictionary…</source>
        <translation>Wörterbuch exportieren…</translation>
    </message>
    <message>
        <source>Import dictionary…</source>
        <translation>Wörterbuch importieren…</translation>
    </message>
    <message>
        <source>Dictionary exported</source>
        <translation>Wörterbuch exportiert</translation>
    </message>
    <message>
        <source>This file is no table of terms.</source>
        <translation>Diese Datei ist keine Tabelle mit Begriffen.</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>After 30 days</source>
        <translation>Nach 30 Tagen</translation>
    </message>
    <message>
        <source>After 90 days</source>
        <translation>Nach 90 Tagen</translation>
    </message>
    <message>
        <source>After a year</source>
        <translation>Nach einem Jahr</translation>
    </message>
    <message>
        <source>Cancelled. Nothing was changed.</source>
        <translation>Abgebrochen. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>This archive was made by a newer Vesko. Update the app before importing it.</source>
        <translation>Dieses Archiv stammt von einem neueren Vesko. Aktualisieren Sie die App, bevor Sie es importieren.</translation>
    </message>
    <message>
        <source>This archive unpacks to more than Vesko takes in. Nothing was changed.</source>
        <translation>Dieses Archiv enthält entpackt mehr, als Vesko aufnimmt. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>This file is no library that Vesko has exported, or it is damaged. Nothing was changed.</source>
        <translation>Diese Datei ist keine von Vesko exportierte Bibliothek, oder sie ist beschädigt. Nichts wurde geändert.</translation>
    </message>
    <message>
        <source>There is not enough room on the disk. Your saved files were preserved.</source>
        <translation>Auf dem Datenträger ist nicht genug Platz. Ihre gespeicherten Dateien wurden bewahrt.</translation>
    </message>
    <message>
        <source>Audio removed to save room: %1</source>
        <translation>Ton entfernt, um Platz zu sparen: %1</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Importieren…</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exportieren…</translation>
    </message>
    <message>
        <source>Empty Trash…</source>
        <translation>Papierkorb leeren…</translation>
    </message>
    <message>
        <source>Delete all notes in the Trash permanently?</source>
        <translation>Alle Notizen im Papierkorb endgültig löschen?</translation>
    </message>
    <message>
        <source>Their recordings go with them. This cannot be undone.</source>
        <translation>Ihre Aufnahmen werden mitgelöscht. Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Empty Trash</source>
        <translation>Papierkorb leeren</translation>
    </message>
    <message>
        <source>Your recordings take %1.</source>
        <translation>Ihre Aufnahmen belegen %1.</translation>
    </message>
    <message>
        <source>Remove recordings</source>
        <translation>Aufnahmen entfernen</translation>
    </message>
    <message>
        <source>Only the audio goes: texts and their history stay, and so does each recording without a text.</source>
        <translation>Nur der Ton wird entfernt: Texte und ihr Verlauf bleiben, ebenso jede Aufnahme ohne Text.</translation>
    </message>
    <message>
        <source>Remove the audio of old recordings?</source>
        <translation>Ton alter Aufnahmen entfernen?</translation>
    </message>
    <message>
        <source>What is older goes now, and the rest as it grows old. This cannot be undone.</source>
        <translation>Was älter ist, wird jetzt entfernt, und der Rest, sobald er alt genug ist. Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Delete old notes in the Trash?</source>
        <translation>Alte Notizen im Papierkorb löschen?</translation>
    </message>
    <message>
        <source>Notes imported: %1</source>
        <translation>Importierte Notizen: %1</translation>
    </message>
    <message>
        <source>Terms imported: %1</source>
        <translation>Importierte Begriffe: %1</translation>
    </message>
    <message>
        <source>Not pasted</source>
        <translation>Nicht eingefügt</translation>
    </message>
    <message>
        <source>Not transcribed</source>
        <translation>Nicht transkribiert</translation>
    </message>
    <message>
        <source>Copy again</source>
        <translation>Noch einmal kopieren</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Show the text in notifications</source>
        <translation>Den Text in Benachrichtigungen zeigen</translation>
    </message>
    <message>
        <source>Original saved. Waiting for the key from your password store (keyring), which may be asking you to unlock it.</source>
        <translation>Original gesichert. Vesko wartet auf den Schlüssel aus Ihrem Passwortspeicher (Schlüsselbund), der vielleicht entsperrt werden will.</translation>
    </message>
    <message>
        <source>Diagnose…</source>
        <translation>Diagnose…</translation>
    </message>
    <message>
        <source>Diagnosis</source>
        <translation>Diagnose</translation>
    </message>
    <message>
        <source>What works on this computer and what doesn&apos;t. Nothing that you said or wrote is in it, and no key: it can go into a report as it is.</source>
        <translation>Was auf diesem Computer funktioniert und was nicht. Nichts, was Sie gesagt oder geschrieben haben, steht darin, und kein Schlüssel: So kann es in eine Fehlermeldung.</translation>
    </message>
    <message>
        <source>Looking at this computer…</source>
        <translation>Dieser Computer wird untersucht…</translation>
    </message>
    <message>
        <source>This computer could not be looked at.</source>
        <translation>Dieser Computer konnte nicht untersucht werden.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
    <message>
        <source>Uses on-device speech only when this language is supported. Automatic lets the engine find out the language. If a model is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>Erkennt die Sprache nur dann auf dem Gerät, wenn sie unterstützt wird. „Automatisch“ überlässt es der Spracherkennung, die Sprache herauszufinden. Fehlt ein Modell, bleibt der Ton gesichert, und Sie können OpenRouter wählen.</translation>
    </message>
    <message>
        <source>Automatic leaves it to your program or server to find out the language. If it is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>„Automatisch“ überlässt es Ihrem Programm oder Server, die Sprache herauszufinden. Ist es nicht erreichbar, bleibt der Ton gesichert, und Sie können OpenRouter wählen.</translation>
    </message>
    <message numerus="yes">
        <source>%1 notes selected</source>
        <translation>
            <numerusform>%1 Notiz ausgewählt</numerusform>
            <numerusform>%1 Notizen ausgewählt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %1 notes to Trash?</source>
        <translation>
            <numerusform>%1 Notiz in den Papierkorb legen?</numerusform>
            <numerusform>%1 Notizen in den Papierkorb legen?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %1 notes and their recordings permanently?</source>
        <translation>
            <numerusform>%1 Notiz mit ihren Aufnahmen endgültig löschen?</numerusform>
            <numerusform>%1 Notizen mit ihren Aufnahmen endgültig löschen?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 notes moved to Trash</source>
        <translation>
            <numerusform>%1 Notiz in den Papierkorb gelegt</numerusform>
            <numerusform>%1 Notizen in den Papierkorb gelegt</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 notes moved to another project</source>
        <translation>
            <numerusform>%1 Notiz in ein anderes Projekt verschoben</numerusform>
            <numerusform>%1 Notizen in ein anderes Projekt verschoben</numerusform>
        </translation>
    </message>
    <message>
        <source>Note moved to another project</source>
        <translation>Notiz in ein anderes Projekt verschoben</translation>
    </message>
    <message>
        <source>Move to project</source>
        <translation>In Projekt verschieben</translation>
    </message>
    <message>
        <source>Restore notes</source>
        <translation>Notizen wiederherstellen</translation>
    </message>
    <message>
        <source>You can restore the notes and their recordings from Trash.</source>
        <translation>Die Notizen und ihre Aufnahmen lassen sich aus dem Papierkorb wiederherstellen.</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Cancel transcription</source>
        <translation>Transkription abbrechen</translation>
    </message>
    <message>
        <source>Cancelled. The text as it was heard is in its note.</source>
        <translation>Abgebrochen. Der Text, wie er gehört wurde, steht in seiner Notiz.</translation>
    </message>
    <message>
        <source>Transcription cancelled. The recording is saved.</source>
        <translation>Transkription abgebrochen. Die Aufnahme ist gespeichert.</translation>
    </message>
    <message>
        <source>This note is in the Trash</source>
        <translation>Diese Notiz liegt im Papierkorb</translation>
    </message>
    <message>
        <source>Playback speed</source>
        <translation>Wiedergabegeschwindigkeit</translation>
    </message>
    <message>
        <source>Position in the recording</source>
        <translation>Stelle in der Aufnahme</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Im Ordner anzeigen</translation>
    </message>
    <message>
        <source>Vesko is running already, on the display %1, and shows its window there.</source>
        <translation>Vesko läuft schon, auf dem Bildschirm %1, und zeigt dort sein Fenster.</translation>
    </message>
    <message>
        <source>Vesko is running already, but does not answer</source>
        <translation>Vesko läuft schon, antwortet aber nicht</translation>
    </message>
    <message>
        <source>Vesko is running already, in another session, but does not answer</source>
        <translation>Vesko läuft schon, in einer anderen Sitzung, antwortet aber nicht</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>No setting has these words</source>
        <translation>Keine Einstellung hat diese Wörter</translation>
    </message>
    <message>
        <source>Translation and cleanup</source>
        <translation>Übersetzung und Bereinigung</translation>
    </message>
    <message>
        <source>Search settings</source>
        <translation>Einstellungen durchsuchen</translation>
    </message>
    <message>
        <source>Notes found: %1</source>
        <translation>Gefundene Notizen: %1</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
    <message>
        <source>The desktop's settings did not take %1. Choose keys there.</source>
        <translation>Die Einstellungen der Arbeitsumgebung haben %1 nicht angenommen. Wählen Sie dort Tasten.</translation>
    </message>
    <message>
        <source>%1 gives programs no shortcuts of their own, but Vesko can add one to its settings: see “Capture and insertion” in the settings of Vesko.</source>
        <translation>%1 gibt Programmen keine eigenen Tastenkürzel, aber Vesko kann seinen Einstellungen eines hinzufügen: siehe „Aufnehmen und Einfügen“ in den Einstellungen von Vesko.</translation>
    </message>
    <message>
        <source>When you dictate into another program, %1 asks whether Vesko may control the keyboard: once, or each time if it does not remember your answer. Allow it in the window that opens. Vesko presses the keys that paste, and no others.</source>
        <translation>Wenn Sie in ein anderes Programm diktieren, fragt %1, ob Vesko die Tastatur steuern darf: einmal, oder jedes Mal, wenn die Antwort nicht gemerkt wird. Erlauben Sie es in dem Fenster, das sich öffnet. Vesko drückt die Tasten zum Einfügen und keine anderen.</translation>
    </message>
    <message>
        <source>Copied. The desktop was still asking you whether Vesko may press the keys that paste. Paste it with Command V.</source>
        <translation>Kopiert. Die Arbeitsumgebung fragte Sie noch, ob Vesko die Tasten zum Einfügen drücken darf. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
    <message>
        <source>Copied. Vesko was not allowed to press the keys that paste. Paste it with Command V.</source>
        <translation>Kopiert. Vesko durfte die Tasten zum Einfügen nicht drücken. Fügen Sie den Text mit Strg+V ein.</translation>
    </message>
</context>
</TS>
