<?xml version="1.0" encoding="utf-8"?>
<!-- French. Nobody whose first language it is has read this catalogue yet. -->
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>Vesko</name>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Sign-in code</source>
        <translation>Code de connexion</translation>
    </message>
    <message>
        <source>Use another email</source>
        <translation>Utiliser une autre adresse</translation>
    </message>
    <message>
        <source>Continue with Google</source>
        <translation>Continuer avec Google</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>or</source>
        <translation>ou</translation>
    </message>
    <message>
        <source>Email address</source>
        <translation>Adresse e-mail</translation>
    </message>
    <message>
        <source>Send code</source>
        <translation>Envoyer le code</translation>
    </message>
    <message>
        <source>Release Fn to finish</source>
        <translation>Relâchez la touche pour terminer</translation>
    </message>
    <message>
        <source>Release Fn to finish recording</source>
        <translation>Relâchez la touche pour terminer l’enregistrement</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rétablir</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Couper</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copier</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tout sélectionner</translation>
    </message>
    <message>
        <source>Recognized term</source>
        <translation>Terme reconnu</translation>
    </message>
    <message>
        <source>For example: tallki</source>
        <translation>Par exemple : tallki</translation>
    </message>
    <message>
        <source>Use instead</source>
        <translation>Écrire à la place</translation>
    </message>
    <message>
        <source>For example: Vesko</source>
        <translation>Par exemple : Vesko</translation>
    </message>
    <message>
        <source>Dictionary</source>
        <translation>Dictionnaire</translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>Modifier %1</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>Retirer %1</translation>
    </message>
    <message>
        <source>Use term</source>
        <translation>Utiliser le terme</translation>
    </message>
    <message>
        <source>Use %1</source>
        <translation>Utiliser %1</translation>
    </message>
    <message>
        <source>Vesko Dictionary</source>
        <translation>Dictionnaire de Vesko</translation>
    </message>
    <message>
        <source>Your words, your spelling</source>
        <translation>Vos mots, votre orthographe</translation>
    </message>
    <message>
        <source>Corrections stay on this Mac. Original transcripts are kept.</source>
        <translation>Les corrections restent sur cet ordinateur. Les transcriptions d’origine sont conservées.</translation>
    </message>
    <message>
        <source>Save last corrections</source>
        <translation>Enregistrer les dernières corrections</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Ignorer</translation>
    </message>
    <message>
        <source>Search dictionary</source>
        <translation>Rechercher dans le dictionnaire</translation>
    </message>
    <message>
        <source>Whole terms are replaced after recognition. New unrelated wording stays a suggestion. You can edit, disable or remove any term.</source>
        <translation>Les termes entiers sont remplacés après la reconnaissance. Une formulation nouvelle sans ressemblance reste une suggestion. Vous pouvez modifier, désactiver ou retirer chaque terme.</translation>
    </message>
    <message>
        <source>Which language do you speak?</source>
        <translation>Quelle langue parlez-vous ?</translation>
    </message>
    <message>
        <source>I switch between languages</source>
        <translation>Je passe d’une langue à l’autre</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menu</translation>
    </message>
    <message>
        <source>Your voice, kept close</source>
        <translation>Votre voix, tout près de vous</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Bibliothèque</translation>
    </message>
    <message>
        <source>All notes</source>
        <translation>Toutes les notes</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>Projets</translation>
    </message>
    <message>
        <source>New project</source>
        <translation>Nouveau projet</translation>
    </message>
    <message>
        <source>Rename project</source>
        <translation>Renommer le projet</translation>
    </message>
    <message>
        <source>Trash</source>
        <translation>Corbeille</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Réglages</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Enregistrer</translation>
    </message>
    <message>
        <source>Project name</source>
        <translation>Nom du projet</translation>
    </message>
    <message>
        <source>Note title</source>
        <translation>Titre de la note</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projet</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Aucun projet</translation>
    </message>
    <message>
        <source>Add voice</source>
        <translation>Ajouter la voix</translation>
    </message>
    <message>
        <source>Saved on this Mac</source>
        <translation>Enregistré sur cet ordinateur</translation>
    </message>
    <message>
        <source>Note copied</source>
        <translation>Note copiée</translation>
    </message>
    <message>
        <source>Copy note</source>
        <translation>Copier la note</translation>
    </message>
    <message>
        <source>Copy note (⌘C)</source>
        <translation>Copier la note (Ctrl+C)</translation>
    </message>
    <message>
        <source>Note actions</source>
        <translation>Actions de la note</translation>
    </message>
    <message>
        <source>Note text</source>
        <translation>Texte de la note</translation>
    </message>
    <message>
        <source>Original recordings</source>
        <translation>Enregistrements d’origine</translation>
    </message>
    <message>
        <source>Copy text</source>
        <translation>Copier le texte</translation>
    </message>
    <message>
        <source>Export Markdown…</source>
        <translation>Exporter en Markdown…</translation>
    </message>
    <message>
        <source>Restore note</source>
        <translation>Restaurer la note</translation>
    </message>
    <message>
        <source>Move to Trash…</source>
        <translation>Mettre à la corbeille…</translation>
    </message>
    <message>
        <source>Delete permanently…</source>
        <translation>Supprimer définitivement…</translation>
    </message>
    <message>
        <source>Move this note to Trash?</source>
        <translation>Mettre cette note à la corbeille ?</translation>
    </message>
    <message>
        <source>You can restore the note and its recordings from Trash.</source>
        <translation>Vous pouvez restaurer la note et ses enregistrements depuis la corbeille.</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mettre à la corbeille</translation>
    </message>
    <message>
        <source>Delete this note and its recordings permanently?</source>
        <translation>Supprimer définitivement cette note et ses enregistrements ?</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>Cette action est irréversible.</translation>
    </message>
    <message>
        <source>Delete permanently</source>
        <translation>Supprimer définitivement</translation>
    </message>
    <message>
        <source>The file that is there will be replaced.</source>
        <translation>Le fichier existant sera remplacé.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Fichier</translation>
    </message>
    <message>
        <source>Search notes and transcripts</source>
        <translation>Rechercher dans les notes et transcriptions</translation>
    </message>
    <message>
        <source>Play or stop original recording</source>
        <translation>Lire ou arrêter l’enregistrement d’origine</translation>
    </message>
    <message>
        <source>Original transcript</source>
        <translation>Transcription d’origine</translation>
    </message>
    <message>
        <source>Edited text</source>
        <translation>Texte modifié</translation>
    </message>
    <message>
        <source>Copy edited text</source>
        <translation>Copier le texte modifié</translation>
    </message>
    <message>
        <source>Transcribe this original again?</source>
        <translation>Transcrire de nouveau cet original ?</translation>
    </message>
    <message>
        <source>Uses your current model settings. OpenRouter requests use your credit and can incur another charge. The result stays in this note and is never pasted automatically.</source>
        <translation>Utilise vos réglages de modèle actuels. Les requêtes à OpenRouter consomment votre crédit et peuvent être facturées de nouveau. Le résultat reste dans cette note et n’est jamais collé automatiquement.</translation>
    </message>
    <message>
        <source>Transcribe</source>
        <translation>Transcrire</translation>
    </message>
    <message>
        <source>New note</source>
        <translation>Nouvelle note</translation>
    </message>
    <message>
        <source>Create a text note</source>
        <translation>Créer une note de texte</translation>
    </message>
    <message>
        <source>Records into the library without pasting into another app</source>
        <translation>Enregistre dans la bibliothèque sans coller dans une autre application</translation>
    </message>
    <message>
        <source>Dismiss message</source>
        <translation>Fermer le message</translation>
    </message>
    <message>
        <source>Your thoughts, ready to use</source>
        <translation>Vos idées, prêtes à servir</translation>
    </message>
    <message>
        <source>Select a note to edit its text, replay the original, or add more by voice.</source>
        <translation>Sélectionnez une note pour modifier son texte, réécouter l’original ou la compléter à la voix.</translation>
    </message>
    <message>
        <source>How to dictate</source>
        <translation>Comment dicter</translation>
    </message>
    <message>
        <source>Hold Fn and speak</source>
        <translation>Maintenez la touche et parlez</translation>
    </message>
    <message>
        <source>Release to finish. Vesko pastes into the field you started in.</source>
        <translation>Relâchez pour terminer. Vesko colle dans le champ où vous avez commencé.</translation>
    </message>
    <message>
        <source>Tap Fn for longer thoughts</source>
        <translation>Un appui bref pour les idées plus longues</translation>
    </message>
    <message>
        <source>Recording keeps going hands-free. Tap Fn again to finish.</source>
        <translation>L’enregistrement continue mains libres. Appuyez de nouveau brièvement pour terminer.</translation>
    </message>
    <message>
        <source>Works the same way when Fn is busy.</source>
        <translation>Fonctionne de même quand la touche est prise.</translation>
    </message>
    <message>
        <source>Click the floating circle</source>
        <translation>Cliquez sur le cercle flottant</translation>
    </message>
    <message>
        <source>It sits in the corner and shows when Vesko is listening.</source>
        <translation>Il est dans le coin et montre quand Vesko écoute.</translation>
    </message>
    <message>
        <source>Keep notes in the library</source>
        <translation>Gardez des notes dans la bibliothèque</translation>
    </message>
    <message>
        <source>Record a voice note, edit the text, and group notes by project.</source>
        <translation>Enregistrez une note vocale, modifiez le texte et classez les notes par projet.</translation>
    </message>
    <message>
        <source>Speak once. Keep the thought. Use the words.</source>
        <translation>Parlez une fois. Gardez l’idée. Servez-vous des mots.</translation>
    </message>
    <message>
        <source>Faster than typing</source>
        <translation>Plus rapide que le clavier</translation>
    </message>
    <message>
        <source>Say it in any app. Vesko writes it where your cursor is.</source>
        <translation>Parlez dans n’importe quelle application. Vesko écrit là où se trouve votre curseur.</translation>
    </message>
    <message>
        <source>Nothing gets lost</source>
        <translation>Rien ne se perd</translation>
    </message>
    <message>
        <source>Every original recording stays on this Mac. Retry any transcription.</source>
        <translation>Chaque enregistrement d’origine reste sur cet ordinateur. Toute transcription peut être refaite.</translation>
    </message>
    <message>
        <source>Yours to edit</source>
        <translation>À vous de modifier</translation>
    </message>
    <message>
        <source>Notes, projects and a personal dictionary that learns your words.</source>
        <translation>Des notes, des projets et un dictionnaire personnel qui apprend vos mots.</translation>
    </message>
    <message>
        <source>Welcome to Vesko</source>
        <translation>Bienvenue dans Vesko</translation>
    </message>
    <message>
        <source>Allow access</source>
        <translation>Autoriser l’accès</translation>
    </message>
    <message>
        <source>macOS asks once for each. You can change them later in Settings.</source>
        <translation>Ce dont Vesko a besoin pour fonctionner. Vous pourrez le revoir plus tard dans les réglages.</translation>
    </message>
    <message>
        <source>You are signed in</source>
        <translation>Vous êtes connecté</translation>
    </message>
    <message>
        <source>Create your Vesko account</source>
        <translation>Créer votre compte Vesko</translation>
    </message>
    <message>
        <source>Notes and recordings stay on this Mac.</source>
        <translation>Les notes et les enregistrements restent sur cet ordinateur.</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Retour</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Pas maintenant</translation>
    </message>
    <message>
        <source>Stop dictation</source>
        <translation>Terminer la dictée</translation>
    </message>
    <message>
        <source>Start dictation</source>
        <translation>Commencer la dictée</translation>
    </message>
    <message>
        <source>Open Vesko</source>
        <translation>Ouvrir Vesko</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Réglages…</translation>
    </message>
    <message>
        <source>Quit Vesko</source>
        <translation>Quitter Vesko</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Compte</translation>
    </message>
    <message>
        <source>Signed in as</source>
        <translation>Connecté en tant que</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>Méthode</translation>
    </message>
    <message>
        <source>Sign out</source>
        <translation>Se déconnecter</translation>
    </message>
    <message>
        <source>Delete account…</source>
        <translation>Supprimer le compte…</translation>
    </message>
    <message>
        <source>Delete your Vesko account?</source>
        <translation>Supprimer votre compte Vesko ?</translation>
    </message>
    <message>
        <source>Your account is removed from Vesko's service. Notes and recordings on this Mac are kept.</source>
        <translation>Votre compte est retiré du service de Vesko. Les notes et les enregistrements de cet ordinateur sont conservés.</translation>
    </message>
    <message>
        <source>Delete account</source>
        <translation>Supprimer le compte</translation>
    </message>
    <message>
        <source>Capture and insertion</source>
        <translation>Capture et insertion</translation>
    </message>
    <message>
        <source>Global shortcut</source>
        <translation>Raccourci global</translation>
    </message>
    <message>
        <source>Also use Fn / Globe to start and stop</source>
        <translation>Utiliser aussi une seule touche pour commencer et terminer</translation>
    </message>
    <message>
        <source>Dictation key</source>
        <translation>Touche de dictée</translation>
    </message>
    <message>
        <source>Fn starts recording when pressed. Tap to keep recording, or hold for 0.35 seconds and release to finish. A second tap stops a latched recording. Fn combinations do not send audio for transcription. Set Fn/Globe to Do Nothing in System Settings &gt; Keyboard if macOS opens its own dictation or emoji picker.</source>
        <translation>L’enregistrement commence quand la touche est enfoncée. Un appui bref laisse l’enregistrement continuer ; ou maintenez-la 0,35 seconde et relâchez-la pour terminer. Un second appui bref arrête un enregistrement en cours. Les combinaisons avec d’autres touches n’envoient aucun son à transcrire. Si votre bureau se sert lui-même de cette touche, désactivez cela dans ses réglages du clavier ou choisissez une autre touche.</translation>
    </message>
    <message>
        <source>Show floating capture button</source>
        <translation>Afficher le bouton flottant de capture</translation>
    </message>
    <message>
        <source>Click it to record. Drag it to move it; a drag never starts a recording. Right-click it for the Vesko menu.</source>
        <translation>Cliquez pour enregistrer. Faites-le glisser pour le déplacer ; un glissement ne lance jamais d’enregistrement. Un clic droit ouvre le menu de Vesko.</translation>
    </message>
    <message>
        <source>The Vesko icon is hidden behind the camera area of the menu bar. Hold Command and drag menu bar icons to make room, or right-click the floating button for the same menu.</source>
        <translation>Ce bureau n’affiche pas d’icônes d’état. Faites un clic droit sur le bouton flottant pour le même menu.</translation>
    </message>
    <message>
        <source>Play sounds when recording starts and stops</source>
        <translation>Jouer un son au début et à la fin de l’enregistrement</translation>
    </message>
    <message>
        <source>Preview start sound</source>
        <translation>Écouter le son de début</translation>
    </message>
    <message>
        <source>Preview stop sound</source>
        <translation>Écouter le son de fin</translation>
    </message>
    <message>
        <source>Paste dictation into the original field</source>
        <translation>Coller la dictée dans le champ d’origine</translation>
    </message>
    <message>
        <source>Text is copied after dictation. Automatic paste needs Accessibility access and an unchanged focused field. Secure or unsupported fields use copy only. Vesko never presses Return.</source>
        <translation>Le texte est copié après la dictée. Le collage automatique demande l’accessibilité et un champ actif inchangé. Dans les champs protégés ou non pris en charge, le texte est seulement copié. Vesko n’appuie jamais sur Entrée.</translation>
    </message>
    <message>
        <source>OpenRouter access</source>
        <translation>Accès à OpenRouter</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Utiliser</translation>
    </message>
    <message>
        <source>Vesko access is ready</source>
        <translation>L’accès de Vesko est prêt</translation>
    </message>
    <message>
        <source>Key status</source>
        <translation>État de la clé</translation>
    </message>
    <message>
        <source>Your personal API key</source>
        <translation>Votre clé d’API personnelle</translation>
    </message>
    <message>
        <source>Save key</source>
        <translation>Enregistrer la clé</translation>
    </message>
    <message>
        <source>Remove key</source>
        <translation>Retirer la clé</translation>
    </message>
    <message>
        <source>OpenRouter account</source>
        <translation>Compte OpenRouter</translation>
    </message>
    <message>
        <source>Your key belongs to this macOS account. Vesko does not share it with other users or top up your balance.</source>
        <translation>Votre clé appartient à votre compte d’utilisateur sur cet ordinateur. Vesko ne la partage pas avec d’autres utilisateurs et ne recharge pas votre crédit.</translation>
    </message>
    <message>
        <source>Speech recognition</source>
        <translation>Reconnaissance vocale</translation>
    </message>
    <message>
        <source>Transcribe with</source>
        <translation>Transcrire avec</translation>
    </message>
    <message>
        <source>Spoken language</source>
        <translation>Langue parlée</translation>
    </message>
    <message>
        <source>Uses on-device speech only when this language is supported. Automatic uses your Mac's language. If a model is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>N’utilise la reconnaissance sur l’appareil que si cette langue est prise en charge. « Automatique » prend la langue de votre ordinateur. Si un modèle manque, le son reste enregistré et vous pouvez choisir OpenRouter.</translation>
    </message>
    <message>
        <source>Speech model</source>
        <translation>Modèle vocal</translation>
    </message>
    <message>
        <source>Speech model ID</source>
        <translation>Identifiant du modèle vocal</translation>
    </message>
    <message>
        <source>Audio is sent to OpenRouter and its selected transcription provider. Provider retention policies apply. Vesko access or your personal key determines which balance is used.</source>
        <translation>Le son est envoyé à OpenRouter et au fournisseur de transcription choisi. Les règles de conservation des fournisseurs s’appliquent. L’accès de Vesko ou votre clé personnelle détermine quel crédit est utilisé.</translation>
    </message>
    <message>
        <source>Recordings stop after 5 minutes in this version. Original audio stays on this Mac.</source>
        <translation>Dans cette version, les enregistrements s’arrêtent après 5 minutes. Le son d’origine reste sur cet ordinateur.</translation>
    </message>
    <message>
        <source>Availability and storage</source>
        <translation>Disponibilité et stockage</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Lancer à l’ouverture de session</translation>
    </message>
    <message>
        <source>macOS approval is needed in Login Items.</source>
        <translation>Votre bureau doit autoriser Vesko parmi les applications au démarrage.</translation>
    </message>
    <message>
        <source>Open Login Items</source>
        <translation>Ouvrir les applications au démarrage</translation>
    </message>
    <message>
        <source>Open data folder</source>
        <translation>Ouvrir le dossier des données</translation>
    </message>
    <message>
        <source>Recordings and notes are stored locally. Export individual notes as Markdown from the note menu. Cloud sync is not enabled.</source>
        <translation>Les enregistrements et les notes sont conservés sur cet ordinateur. Exportez une note en Markdown depuis son menu. La synchronisation dans le nuage n’est pas activée.</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Traduction</translation>
    </message>
    <message>
        <source>Translate dictation into</source>
        <translation>Traduire la dictée en</translation>
    </message>
    <message>
        <source>Text model ID</source>
        <translation>Identifiant du modèle de texte</translation>
    </message>
    <message>
        <source>Off by default. When on, each transcript is sent to the text model below for a separate paid request. The original transcript stays saved with the recording.</source>
        <translation>Désactivé au départ. Une fois activé, chaque transcription est envoyée au modèle de texte ci-dessous dans une requête payante distincte. La transcription d’origine reste enregistrée avec l’enregistrement.</translation>
    </message>
    <message>
        <source>Optional AI cleanup</source>
        <translation>Relecture par IA, au choix</translation>
    </message>
    <message>
        <source>Clean up punctuation and repeated words</source>
        <translation>Corriger la ponctuation et les mots répétés</translation>
    </message>
    <message>
        <source>Suggested text models</source>
        <translation>Modèles de texte suggérés</translation>
    </message>
    <message>
        <source>Adds a separate paid request. With Apple speech, only the transcript is sent for cleanup. The original transcript stays available.</source>
        <translation>Ajoute une requête payante distincte. Avec la reconnaissance sur l’appareil, seule la transcription est envoyée à la relecture. La transcription d’origine reste disponible.</translation>
    </message>
    <message>
        <source>Vesko Settings</source>
        <translation>Réglages de Vesko</translation>
    </message>
    <message>
        <source>Personal dictionary</source>
        <translation>Dictionnaire personnel</translation>
    </message>
    <message>
        <source>Use personal dictionary</source>
        <translation>Utiliser le dictionnaire personnel</translation>
    </message>
    <message>
        <source>Learn from corrected dictation</source>
        <translation>Apprendre des dictées corrigées</translation>
    </message>
    <message>
        <source>Learning watches only the fragment Vesko pasted into the same focused field, for up to two minutes. Return followed by a cleared field is used as its send signal. Similar word corrections are enabled automatically; other replacements are saved as suggestions. For other send buttons, review the last corrections in Dictionary. Nothing is learned from secure or unreadable fields.</source>
        <translation>Seul le passage que Vesko a collé dans le même champ actif est observé, pendant deux minutes au plus. Entrée suivie d’un champ vidé compte comme un envoi. Les corrections de mots ressemblants sont activées automatiquement ; les autres remplacements sont enregistrés comme suggestions. Si vous envoyez par un bouton, vérifiez les dernières corrections dans le dictionnaire. Rien n’est appris des champs protégés ou illisibles.</translation>
    </message>
    <message>
        <source>Open Dictionary</source>
        <translation>Ouvrir le dictionnaire</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Autorisations</translation>
    </message>
    <message>
        <source>Microphone is used only while Recording. Accessibility checks the paste destination and, when learning is enabled, its inserted fragment. Input Monitoring observes Fn and a Return send signal; keystrokes are not saved.</source>
        <translation>Le micro ne sert que pendant l’enregistrement. L’accessibilité vérifie la destination du collage et, si l’apprentissage est activé, le passage inséré. Vesko surveille au clavier sa propre touche et Entrée comme signe d’envoi ; les frappes ne sont pas enregistrées.</translation>
    </message>
    <message>
        <source>Open Privacy &amp; Security</source>
        <translation>Ouvrir les réglages de confidentialité</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Confidentialité</translation>
    </message>
    <message>
        <source>Share anonymous usage analytics</source>
        <translation>Partager des statistiques d’utilisation anonymes</translation>
    </message>
    <message>
        <source>Enter a valid email address.</source>
        <translation>Saisissez une adresse e-mail valide.</translation>
    </message>
    <message>
        <source>That code is not correct. Check the latest email and try again.</source>
        <translation>Ce code n’est pas le bon. Regardez le dernier e-mail et réessayez.</translation>
    </message>
    <message>
        <source>This code has expired. Request a new one.</source>
        <translation>Ce code a expiré. Demandez-en un nouveau.</translation>
    </message>
    <message>
        <source>Too many attempts. Request a new code.</source>
        <translation>Trop d’essais. Demandez un nouveau code.</translation>
    </message>
    <message>
        <source>Too many requests. Wait a few minutes and try again.</source>
        <translation>Trop de demandes. Attendez quelques minutes et réessayez.</translation>
    </message>
    <message>
        <source>This sign-in method is not available yet. Choose another one.</source>
        <translation>Ce mode de connexion n’est pas encore disponible. Choisissez-en un autre.</translation>
    </message>
    <message>
        <source>Sign-in was cancelled.</source>
        <translation>La connexion a été annulée.</translation>
    </message>
    <message>
        <source>Your session has ended. Sign in again.</source>
        <translation>Votre session est terminée. Reconnectez-vous.</translation>
    </message>
    <message>
        <source>You are offline. Your notes stay on this Mac. Reconnect to sign in.</source>
        <translation>Vous êtes hors ligne. Vos notes restent sur cet ordinateur. Rétablissez la connexion pour vous identifier.</translation>
    </message>
    <message>
        <source>Vesko could not reach its account service. Try again in a moment.</source>
        <translation>Vesko n’a pas pu joindre son service de comptes. Réessayez dans un instant.</translation>
    </message>
    <message>
        <source>Capture was interrupted. The original file may be recovered or retried.</source>
        <translation>La capture a été interrompue. Le fichier d’origine pourra peut-être être récupéré ou transcrit de nouveau.</translation>
    </message>
    <message>
        <source>Untitled note</source>
        <translation>Note sans titre</translation>
    </message>
    <message>
        <source>Voice capture</source>
        <translation>Capture vocale</translation>
    </message>
    <message>
        <source>Dictation</source>
        <translation>Dictée</translation>
    </message>
    <message>
        <source>Voice note</source>
        <translation>Note vocale</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Enregistrement</translation>
    </message>
    <message>
        <source>Audio saved</source>
        <translation>Son enregistré</translation>
    </message>
    <message>
        <source>Transcribing</source>
        <translation>Transcription en cours</translation>
    </message>
    <message>
        <source>Transcribing: %1 %</source>
        <translation>Transcription : %1 %</translation>
    </message>
    <message>
        <source>Transcribed</source>
        <translation>Transcrit</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Échec</translation>
    </message>
    <message>
        <source>Interrupted</source>
        <translation>Interrompu</translation>
    </message>
    <message>
        <source>In progress</source>
        <translation>En cours</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Enter a project name between 1 and 80 characters.</source>
        <translation>Saisissez un nom de projet de 1 à 80 caractères.</translation>
    </message>
    <message>
        <source>A project with this name already exists.</source>
        <translation>Un projet de ce nom existe déjà.</translation>
    </message>
    <message>
        <source>Enter two different terms between 1 and 80 characters. The dictionary holds up to 1,000 terms.</source>
        <translation>Saisissez deux termes différents de 1 à 80 caractères. Le dictionnaire contient au plus 1 000 termes.</translation>
    </message>
    <message>
        <source>This recognized term is already in your dictionary. Edit its existing entry.</source>
        <translation>Ce terme reconnu est déjà dans votre dictionnaire. Modifiez l’entrée existante.</translation>
    </message>
    <message>
        <source>This item is no longer available.</source>
        <translation>Cet élément n’est plus disponible.</translation>
    </message>
    <message>
        <source>The recording path is invalid. The library was preserved.</source>
        <translation>Le chemin de l’enregistrement n’est pas valide. La bibliothèque est intacte.</translation>
    </message>
    <message>
        <source>This library was made by a newer Vesko. Update the app before opening it.</source>
        <translation>Cette bibliothèque vient d’un Vesko plus récent. Mettez l’application à jour avant de l’ouvrir.</translation>
    </message>
    <message>
        <source>The library could not be read. Your files were preserved. Open the data folder to recover its backup.</source>
        <translation>La bibliothèque n’a pas pu être lue. Vos fichiers sont intacts. Ouvrez le dossier des données pour récupérer la copie de secours.</translation>
    </message>
    <message>
        <source>Vesko is already using this library. Open the running app instead.</source>
        <translation>Vesko utilise déjà cette bibliothèque. Ouvrez l’application qui est en marche.</translation>
    </message>
    <message>
        <source>No speech was returned. Your audio is saved. You can retry with another model.</source>
        <translation>Aucune parole n’a été reconnue. Votre son est enregistré. Vous pouvez réessayer avec un autre modèle.</translation>
    </message>
    <message>
        <source>Add your OpenRouter key in Settings. Your audio stays saved.</source>
        <translation>Ajoutez votre clé OpenRouter dans les réglages. Votre son reste enregistré.</translation>
    </message>
    <message>
        <source>Allow OpenRouter processing in Settings, or choose Apple on-device speech. Your original stays saved.</source>
        <translation>Autorisez le traitement par OpenRouter dans les réglages, ou choisissez la reconnaissance sur l’appareil. Votre original reste enregistré.</translation>
    </message>
    <message>
        <source>Choose a model in Settings.</source>
        <translation>Choisissez un modèle dans les réglages.</translation>
    </message>
    <message>
        <source>This audio is too large for one request. The original is saved. Use a shorter recording.</source>
        <translation>Ce son est trop volumineux pour une seule requête. L’original est enregistré. Faites un enregistrement plus court.</translation>
    </message>
    <message>
        <source>The provider returned an unreadable result. Your audio is saved.</source>
        <translation>Le fournisseur a renvoyé un résultat illisible. Votre son est enregistré.</translation>
    </message>
    <message>
        <source>Vesko could not save this change. Check free disk space and access to the data folder.</source>
        <translation>Vesko n’a pas pu enregistrer ce changement. Vérifiez l’espace libre et l’accès au dossier des données.</translation>
    </message>
    <message>
        <source>OpenRouter rejected this key. Check it in Settings.</source>
        <translation>OpenRouter a refusé cette clé. Vérifiez-la dans les réglages.</translation>
    </message>
    <message>
        <source>OpenRouter needs more credit. Top up your account, then retry.</source>
        <translation>OpenRouter demande plus de crédit. Rechargez votre compte, puis réessayez.</translation>
    </message>
    <message>
        <source>The provider is busy or its limit was reached. Try again later.</source>
        <translation>Le fournisseur est occupé ou sa limite est atteinte. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The provider could not complete this request. Your audio is saved. Try again later.</source>
        <translation>Le fournisseur n’a pas pu traiter cette requête. Votre son est enregistré. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>Translation was unavailable. The original transcript was kept.</source>
        <translation>La traduction n’était pas disponible. La transcription d’origine est conservée.</translation>
    </message>
    <message>
        <source>AI cleanup was unavailable. The original transcript was kept.</source>
        <translation>La relecture par IA n’était pas disponible. La transcription d’origine est conservée.</translation>
    </message>
    <message>
        <source>Sign in to use Vesko Plus. Your audio is saved.</source>
        <translation>Connectez-vous pour utiliser Vesko Plus. Votre son est enregistré.</translation>
    </message>
    <message>
        <source>Vesko Plus models are not available yet. Your audio is saved. Choose Apple on-device speech or your own key.</source>
        <translation>Les modèles de Vesko Plus ne sont pas encore disponibles. Votre son est enregistré. Choisissez la reconnaissance sur l’appareil ou votre propre clé.</translation>
    </message>
    <message>
        <source>This month's Vesko Plus allowance is used up. Your audio is saved. It renews at the start of next month.</source>
        <translation>Le forfait Vesko Plus de ce mois est épuisé. Votre son est enregistré. Il se renouvelle au début du mois prochain.</translation>
    </message>
    <message>
        <source>Today's Vesko Plus limit is reached. Your audio is saved. Try again tomorrow.</source>
        <translation>La limite Vesko Plus d’aujourd’hui est atteinte. Votre son est enregistré. Réessayez demain.</translation>
    </message>
    <message>
        <source>Vesko Plus paused cloud requests for a while after unusually heavy use. Your audio is saved. Try again later.</source>
        <translation>Vesko Plus a suspendu les requêtes pour un temps après une utilisation inhabituelle. Votre son est enregistré. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>Vesko Plus is busy right now. Your audio is saved. Try again later.</source>
        <translation>Vesko Plus est occupé en ce moment. Votre son est enregistré. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>The result did not arrive. Your audio is saved. Vesko did not repeat the request, so you are not charged twice; retry when you are ready.</source>
        <translation>Le résultat n’est pas arrivé. Votre son est enregistré. Vesko n’a pas répété la requête pour que vous ne payiez pas deux fois ; réessayez quand vous voudrez.</translation>
    </message>
    <message>
        <source>This request already finished once. Retry to transcribe it again.</source>
        <translation>Cette requête a déjà abouti une fois. Réessayez pour transcrire de nouveau.</translation>
    </message>
    <message>
        <source>The model refused this request. Your audio is saved. Retry or choose another model.</source>
        <translation>Le modèle a refusé cette requête. Votre son est enregistré. Réessayez ou choisissez un autre modèle.</translation>
    </message>
    <message>
        <source>Vesko Plus returned an unreadable result. Your audio is saved.</source>
        <translation>Vesko Plus a renvoyé un résultat illisible. Votre son est enregistré.</translation>
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
        <translation>E-mail</translation>
    </message>
    <message>
        <source>Apple ID with hidden email</source>
        <translation>Identifiant Apple avec e-mail masqué</translation>
    </message>
    <message>
        <source>We sent a 6-digit code to %1. It works for 10 minutes.</source>
        <translation>Nous avons envoyé un code de 6 chiffres à %1. Il est valable 10 minutes.</translation>
    </message>
    <message>
        <source>Signed out. Your notes stay on this Mac.</source>
        <translation>Déconnecté. Vos notes restent sur cet ordinateur.</translation>
    </message>
    <message>
        <source>Your Vesko account was deleted. Notes and recordings on this Mac were kept.</source>
        <translation>Votre compte Vesko a été supprimé. Les notes et les enregistrements de cet ordinateur sont conservés.</translation>
    </message>
    <message>
        <source>Enter the 6-digit code sent to %1</source>
        <translation>Saisissez le code de 6 chiffres envoyé à %1</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>Vérification…</translation>
    </message>
    <message>
        <source>Sign in</source>
        <translation>Se connecter</translation>
    </message>
    <message>
        <source>Opens Google in a private sign-in window</source>
        <translation>Ouvre Google dans votre navigateur</translation>
    </message>
    <message>
        <source>Google sign-in is not configured in this build</source>
        <translation>La connexion avec Google n’est pas configurée dans cette version</translation>
    </message>
    <message>
        <source>Allow Speech Recognition for Vesko in System Settings, or choose OpenRouter.</source>
        <translation>Autorisez la reconnaissance vocale pour Vesko dans les réglages de votre bureau, ou choisissez OpenRouter.</translation>
    </message>
    <message>
        <source>On-device speech is unavailable for this language. Choose another language or OpenRouter. Your audio is saved.</source>
        <translation>La reconnaissance sur l’appareil n’existe pas pour cette langue. Choisissez une autre langue ou OpenRouter. Votre son est enregistré.</translation>
    </message>
    <message>
        <source>On-device speech is not available right now. Your audio is saved. Try again or choose OpenRouter.</source>
        <translation>La reconnaissance sur l’appareil n’est pas disponible pour le moment. Votre son est enregistré. Réessayez ou choisissez OpenRouter.</translation>
    </message>
    <message>
        <source>On-device transcription timed out. Your audio is saved.</source>
        <translation>La transcription sur l’appareil a pris trop de temps. Votre son est enregistré.</translation>
    </message>
    <message>
        <source>On-device transcription failed. Your audio is saved. Retry or choose OpenRouter.</source>
        <translation>La transcription sur l’appareil a échoué. Votre son est enregistré. Réessayez ou choisissez OpenRouter.</translation>
    </message>
    <message>
        <source>Ready to capture</source>
        <translation>Prêt à enregistrer</translation>
    </message>
    <message>
        <source>Ready to capture. Speech is recognized on this computer, without a key.</source>
        <translation>Prêt à enregistrer. La parole est reconnue sur cet ordinateur, sans clé.</translation>
    </message>
    <message>
        <source>Ready to capture. Speech is recognized on this computer until your password store (keyring) says whether it holds a key.</source>
        <translation>Prêt à enregistrer. La parole est reconnue sur cet ordinateur jusqu’à ce que votre magasin de mots de passe (trousseau) dise s’il contient une clé.</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Prêt</translation>
    </message>
    <message>
        <source>Starting microphone</source>
        <translation>Démarrage du micro</translation>
    </message>
    <message>
        <source>Allow Microphone for Vesko in System Settings &gt; Privacy &amp; Security &gt; Microphone, then try again.</source>
        <translation>Autorisez le micro pour Vesko dans les réglages de votre bureau, puis réessayez.</translation>
    </message>
    <message>
        <source>Recording. Press the shortcut again to finish.</source>
        <translation>Enregistrement. Appuyez de nouveau sur le raccourci pour terminer.</translation>
    </message>
    <message>
        <source>No sound comes from the microphone. What was said before is kept; the recording goes on when sound comes again.</source>
        <translation>Aucun son ne vient du micro. Ce qui a été dit est conservé ; l’enregistrement reprend dès que le son revient.</translation>
    </message>
    <message>
        <source>Original saved. Transcribing…</source>
        <translation>Original enregistré. Transcription…</translation>
    </message>
    <message>
        <source>The model catalog could not be loaded. Your current choices were kept.</source>
        <translation>Le catalogue des modèles n’a pas pu être chargé. Vos choix actuels sont conservés.</translation>
    </message>
    <message>
        <source>Model catalog updated</source>
        <translation>Catalogue des modèles mis à jour</translation>
    </message>
    <message>
        <source>Recording cancelled. The audio is saved.</source>
        <translation>Enregistrement annulé. Le son est conservé.</translation>
    </message>
    <message>
        <source>Fn combination used. Audio saved without transcription.</source>
        <translation>Combinaison de touches utilisée. Son enregistré sans transcription.</translation>
    </message>
    <message>
        <source>%1 will be used for dictation</source>
        <translation>La dictée utilisera %1</translation>
    </message>
    <message>
        <source>Vesko will use it for dictation. Another language transcribes the last recording again.</source>
        <translation>Vesko s’en servira pour la dictée. Une autre langue transcrit de nouveau le dernier enregistrement.</translation>
    </message>
    <message>
        <source>Vesko will use it for dictation.</source>
        <translation>Vesko s’en servira pour la dictée.</translation>
    </message>
    <message numerus="yes">
        <source>Added %1 dictionary corrections. Review them in Dictionary.</source>
        <translation>
            <numerusform>%1 correction ajoutée au dictionnaire. Vérifiez-la dans le dictionnaire.</numerusform>
            <numerusform>%1 corrections ajoutées au dictionnaire. Vérifiez-les dans le dictionnaire.</numerusform>
        </translation>
    </message>
    <message>
        <source>Dictionary saved</source>
        <translation>Dictionnaire enregistré</translation>
    </message>
    <message>
        <source>This note has no text to copy yet</source>
        <translation>Cette note n’a pas encore de texte à copier</translation>
    </message>
    <message>
        <source>Note copied to clipboard</source>
        <translation>Note copiée dans le presse-papiers</translation>
    </message>
    <message>
        <source>Markdown exported</source>
        <translation>Markdown exporté</translation>
    </message>
    <message>
        <source>Saved to your note</source>
        <translation>Enregistré dans votre note</translation>
    </message>
    <message>
        <source>Copied. Paste sent to the original field.</source>
        <translation>Copié. Collage envoyé au champ d’origine.</translation>
    </message>
    <message>
        <source>The text is saved, but the clipboard could not be updated. Copy it from your note.</source>
        <translation>Le texte est enregistré, mais le presse-papiers n’a pas pu être mis à jour. Copiez-le depuis votre note.</translation>
    </message>
    <message>
        <source>Copied to clipboard</source>
        <translation>Copié dans le presse-papiers</translation>
    </message>
    <message>
        <source>Audio saved. Transcription needs attention.</source>
        <translation>Son enregistré. La transcription demande votre attention.</translation>
    </message>
    <message>
        <source>Translation needs an OpenRouter key. The original transcript was kept.</source>
        <translation>La traduction demande une clé OpenRouter. La transcription d’origine est conservée.</translation>
    </message>
    <message>
        <source>AI cleanup needs an OpenRouter key. The original transcript was kept.</source>
        <translation>La relecture par IA demande une clé OpenRouter. La transcription d’origine est conservée.</translation>
    </message>
    <message>
        <source>Recording stopped unexpectedly. Your original file was kept.</source>
        <translation>L’enregistrement s’est arrêté de façon inattendue. Votre fichier d’origine est conservé.</translation>
    </message>
    <message>
        <source>Recording was interrupted by an audio error. Your original file was kept.</source>
        <translation>Une erreur audio a interrompu l’enregistrement. Votre fichier d’origine est conservé.</translation>
    </message>
    <message>
        <source>The microphone could not start. Check your audio input and try again.</source>
        <translation>Le micro n’a pas pu démarrer. Vérifiez l’entrée audio et réessayez.</translation>
    </message>
    <message>
        <source>The network is unavailable. Your recording is saved. Reconnect and retry.</source>
        <translation>Le réseau n’est pas disponible. Votre enregistrement est conservé. Rétablissez la connexion et réessayez.</translation>
    </message>
    <message>
        <source>The provider timed out. Your recording is saved. A retry may incur another provider charge.</source>
        <translation>Le fournisseur n’a pas répondu à temps. Votre enregistrement est conservé. Un nouvel essai peut être facturé de nouveau par le fournisseur.</translation>
    </message>
    <message>
        <source>The network request could not finish. Your recording is saved. Retry when ready.</source>
        <translation>La requête n’a pas pu aboutir. Votre enregistrement est conservé. Réessayez quand vous voudrez.</translation>
    </message>
    <message>
        <source>Vesko could not complete this operation. Your saved files were preserved. Check the data folder and try again.</source>
        <translation>Vesko n’a pas pu mener cette opération à bien. Vos fichiers enregistrés sont intacts. Vérifiez le dossier des données et réessayez.</translation>
    </message>
    <message>
        <source>1 term</source>
        <translation>1 terme</translation>
    </message>
    <message numerus="yes">
        <source>%1 terms</source>
        <translation>
            <numerusform>%1 terme</numerusform>
            <numerusform>%1 termes</numerusform>
        </translation>
    </message>
    <message>
        <source>No matching terms</source>
        <translation>Aucun terme ne correspond</translation>
    </message>
    <message>
        <source>Try another search.</source>
        <translation>Essayez une autre recherche.</translation>
    </message>
    <message>
        <source>Your personal dictionary</source>
        <translation>Votre dictionnaire personnel</translation>
    </message>
    <message>
        <source>Add names, product terms and frequent corrections. Similar spelling fixes can be learned after you edit and send a pasted dictation.</source>
        <translation>Ajoutez des noms, des termes de produits et des corrections fréquentes. Vesko peut apprendre les orthographes proches quand vous modifiez et envoyez une dictée collée.</translation>
    </message>
    <message>
        <source>Save term</source>
        <translation>Enregistrer le terme</translation>
    </message>
    <message>
        <source>Add term</source>
        <translation>Ajouter un terme</translation>
    </message>
    <message numerus="yes">
        <source>Last edited paste: %1 word corrections</source>
        <translation>
            <numerusform>Dernier texte modifié : %1 mot corrigé</numerusform>
            <numerusform>Dernier texte modifié : %1 mots corrigés</numerusform>
        </translation>
    </message>
    <message>
        <source>Added by you</source>
        <translation>Ajouté par vous</translation>
    </message>
    <message>
        <source>Learned spelling</source>
        <translation>Orthographe apprise</translation>
    </message>
    <message>
        <source>Suggestion, review before enabling</source>
        <translation>Suggestion, à vérifier avant de l’activer</translation>
    </message>
    <message>
        <source>Copied. Allow Accessibility for Vesko in System Settings to paste automatically.</source>
        <translation>Copié. Activez l’accessibilité dans les réglages de votre bureau pour coller automatiquement.</translation>
    </message>
    <message>
        <source>Copied. No text field was focused when you started. Paste it with Command V.</source>
        <translation>Copié. Aucun champ de texte n’était actif quand vous avez commencé. Collez avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Vesko could not see which field was in use, so it did not paste. Paste it with Command V.</source>
        <translation>Copié. Vesko n’a pas pu voir quel champ était utilisé et n’a donc rien collé. Collez le texte avec Ctrl+V.</translation>
    </message>
    <message>
        <source>this desktop</source>
        <translation>cet environnement</translation>
    </message>
    <message>
        <source>%1 gives programs no shortcuts of their own. In its configuration, let keys of your choice run “vesko --toggle”.</source>
        <translation>%1 ne donne pas de raccourcis aux programmes. Dans sa configuration, faites exécuter « vesko --toggle » par les touches de votre choix.</translation>
    </message>
    <message>
        <source>%1 shows no program the keys that are pressed in another one.</source>
        <translation>%1 ne montre à aucun programme les touches pressées dans un autre.</translation>
    </message>
    <message>
        <source>Without Xwayland %1 lets Vesko copy and paste nothing while another program is in use. The text is in your note.</source>
        <translation>Sans Xwayland, %1 ne laisse Vesko rien copier ni coller tant qu’un autre programme est utilisé. Le texte est dans votre note.</translation>
    </message>
    <message>
        <source>On %1 Vesko can't paste into other programs. Text is copied, and you paste it yourself.</source>
        <translation>Sous %1, Vesko ne peut pas coller dans d’autres programmes. Le texte est copié et vous le collez vous-même.</translation>
    </message>
    <message>
        <source>%1 does not show Vesko when you press Return, so your corrections wait for your review.</source>
        <translation>%1 ne montre pas à Vesko quand vous appuyez sur Entrée ; vos corrections attendent donc votre relecture.</translation>
    </message>
    <message>
        <source>Not offered here</source>
        <translation>Non disponible ici</translation>
    </message>
    <message>
        <source>Copied. You moved to another field, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copié. Vous êtes passé à un autre champ, Vesko n’a donc pas collé. Collez avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. This field does not accept automatic paste. Paste it with Command V.</source>
        <translation>Copié. Ce champ n’accepte pas le collage automatique. Collez avec Ctrl+V, dans GVim avec Edition &gt; Coller.</translation>
    </message>
    <message>
        <source>Copied. No active window was known when you started, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copié. Au début, aucune fenêtre active n’était connue, Vesko n’a donc pas collé. Collez avec Ctrl+V.</translation>
    </message>
    <message>
        <source>A running dictation is being saved</source>
        <translation>Une dictée en cours est en train d’être enregistrée</translation>
    </message>
    <message>
        <source>Copied. A key was held down, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copié. Une touche était enfoncée, Vesko n’a donc pas collé. Collez avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Another program was holding the keyboard, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copié. Un autre programme tenait le clavier, Vesko n’a donc pas collé. Collez avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Paste was sent, but the field does not show the text. If it is missing, paste it with Command V.</source>
        <translation>Copié. Le collage a été envoyé, mais le champ ne montre pas le texte. S’il manque, collez-le avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Shift, Alt or another such key was latched or locked, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copié. Maj, Alt ou une autre touche de ce genre était rémanente ou verrouillée, Vesko n’a donc pas collé. Collez avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Slow keys are switched on in the desktop's settings, so Vesko can't paste. Paste it with Command V.</source>
        <translation>Copié. Les touches lentes sont activées dans les réglages du bureau, Vesko ne peut donc pas coller. Collez avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. The paste shortcut could not be sent. Paste it with Command V.</source>
        <translation>Copié. Le raccourci de collage n’a pas pu être envoyé. Collez avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. The session was locked, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copié. La session était verrouillée, Vesko n’a donc pas collé. Collez avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. This program does not show its text fields to Vesko. Paste it with Command V or the program's own shortcut.</source>
        <translation>Copié. Ce programme ne montre pas ses champs de texte à Vesko. Collez avec Ctrl+V, dans un terminal avec Ctrl+Maj+V, dans Emacs avec Ctrl+Y.</translation>
    </message>
    <message>
        <source>Copied. Vesko does not paste where letters are hidden, as in a password.</source>
        <translation>Copié. Vesko ne colle pas là où les lettres sont masquées, comme dans un mot de passe.</translation>
    </message>
    <message>
        <source>Copied. You started in Vesko itself, not in another program. Paste it with Command V.</source>
        <translation>Copié. Vous avez commencé dans Vesko lui-même, pas dans un autre programme. Collez avec Ctrl+V.</translation>
    </message>
    <message>
        <source>The download was paused. What has arrived is kept.</source>
        <translation>Le téléchargement est en pause. Ce qui est arrivé est conservé.</translation>
    </message>
    <message>
        <source>The library is too large. Vesko can open up to 1 GB. Your files were preserved.</source>
        <translation>La bibliothèque est trop grande. Vesko peut ouvrir jusqu’à 1 Go. Vos fichiers ont été conservés.</translation>
    </message>
    <message>
        <source>The model arrived damaged and was removed. Try again.</source>
        <translation>Le modèle est arrivé endommagé et a été supprimé. Réessayez.</translation>
    </message>
    <message>
        <source>The model can't be reached. What has arrived is kept. Check the connection and try again.</source>
        <translation>Le modèle est inaccessible. Ce qui est arrivé est conservé. Vérifiez la connexion et réessayez.</translation>
    </message>
    <message>
        <source>The model can't be saved.</source>
        <translation>Le modèle ne peut pas être enregistré.</translation>
    </message>
    <message>
        <source>The server doesn't have this model. Try again later.</source>
        <translation>Le serveur n’a pas ce modèle. Réessayez plus tard.</translation>
    </message>
    <message>
        <source>There isn't enough room on the disk for this model.</source>
        <translation>Il n’y a pas assez de place sur le disque pour ce modèle.</translation>
    </message>
    <message>
        <source>Copied. More than two minutes passed, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copié. Plus de deux minutes ont passé, Vesko n’a donc pas collé. Collez avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Paste it when you are ready.</source>
        <translation>Copié. Collez quand vous voudrez.</translation>
    </message>
    <message>
        <source>Trash is empty</source>
        <translation>La corbeille est vide</translation>
    </message>
    <message>
        <source>Notes you move to Trash can be restored here.</source>
        <translation>Les notes que vous mettez à la corbeille peuvent être restaurées ici.</translation>
    </message>
    <message>
        <source>No matching notes</source>
        <translation>Aucune note ne correspond</translation>
    </message>
    <message>
        <source>Try another search or clear the search field.</source>
        <translation>Essayez une autre recherche ou videz le champ de recherche.</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>Effacer la recherche</translation>
    </message>
    <message>
        <source>A place for your next thought</source>
        <translation>Une place pour votre prochaine idée</translation>
    </message>
    <message>
        <source>Record your voice or start a text note. Your originals stay on this Mac.</source>
        <translation>Enregistrez votre voix ou commencez une note de texte. Vos originaux restent sur cet ordinateur.</translation>
    </message>
    <message>
        <source>Recording %1</source>
        <translation>Enregistrement %1</translation>
    </message>
    <message>
        <source>Finish recording</source>
        <translation>Terminer l’enregistrement</translation>
    </message>
    <message>
        <source>Record note</source>
        <translation>Enregistrer une note</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>Traitement</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Hier</translation>
    </message>
    <message>
        <source>Provider cost not reported</source>
        <translation>Coût non indiqué par le fournisseur</translation>
    </message>
    <message>
        <source>Reported cost: %1</source>
        <translation>Coût indiqué : %1</translation>
    </message>
    <message>
        <source>Retry…</source>
        <translation>Réessayer…</translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation>Étape %1 sur %2</translation>
    </message>
    <message>
        <source>Start using Vesko</source>
        <translation>Utiliser Vesko</translation>
    </message>
    <message>
        <source>Get started</source>
        <translation>Commencer</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuer</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Micro</translation>
    </message>
    <message>
        <source>Records only while you dictate.</source>
        <translation>N’enregistre que pendant que vous dictez.</translation>
    </message>
    <message>
        <source>Speech Recognition</source>
        <translation>Reconnaissance vocale</translation>
    </message>
    <message>
        <source>Apple on-device transcription.</source>
        <translation>Transcription sur cet ordinateur, par un modèle installé.</translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Accessibilité</translation>
    </message>
    <message>
        <source>Input Monitoring</source>
        <translation>Clavier</translation>
    </message>
    <message>
        <source>Notices the Fn key. Keystrokes are not saved.</source>
        <translation>Remarque la touche de dictée. Les frappes ne sont pas enregistrées.</translation>
    </message>
    <message>
        <source>Allowed</source>
        <translation>Autorisé</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>Non autorisé</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Vérifier</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Autoriser</translation>
    </message>
    <message>
        <source>Enable Vesko in Accessibility. If it is missing, add Vesko.app from your Applications folder.</source>
        <translation>L’accessibilité est activée pour cette session. Les programmes déjà ouverts devront peut-être être relancés pour que Vesko puisse y coller.</translation>
    </message>
    <message>
        <source>Enable Vesko in Input Monitoring. If it is missing, use the + button and select Vesko.app. If macOS asks, choose Quit &amp; Reopen. Command Shift Space remains available.</source>
        <translation>Vesko surveille le clavier là où le bureau le permet aux programmes. Choisissez une autre touche de dictée si votre bureau utilise celle-ci. Le raccourci reste disponible.</translation>
    </message>
    <message>
        <source>Microphone access is ready</source>
        <translation>L’accès au micro est prêt</translation>
    </message>
    <message>
        <source>Allow Vesko in System Settings &gt; Privacy &amp; Security &gt; Microphone.</source>
        <translation>Aucun micro n’a pu être ouvert. Branchez-en un, ou choisissez-le et réactivez-le dans les réglages du son de votre bureau.</translation>
    </message>
    <message>
        <source>Vesko could not access your key in Keychain. Unlock your Mac and try again.</source>
        <translation>Vesko n’a pas pu accéder à votre clé dans votre gestionnaire de mots de passe (trousseau). Déverrouillez-le et réessayez.</translation>
    </message>
    <message>
        <source>Function key</source>
        <translation>Touche Fn</translation>
    </message>
    <message>
        <source>Right Ctrl</source>
        <translation>Ctrl droite</translation>
    </message>
    <message>
        <source>Right Alt</source>
        <translation>Alt droite</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>Arrêt défil</translation>
    </message>
    <message>
        <source>Automatic lets the speech model guess, and a short phrase can come back in the wrong language. After your next dictation Vesko asks which language you speak and remembers it.</source>
        <translation>Avec « Automatique », le modèle vocal devine, et une phrase courte peut revenir dans une autre langue. Après votre prochaine dictée, Vesko vous demandera quelle langue vous parlez et s’en souviendra.</translation>
    </message>
    <message>
        <source>Vesko tells the speech model you speak %1. Choose Automatic if you switch between languages.</source>
        <translation>Vesko indique au modèle vocal que vous parlez %1. Choisissez « Automatique » si vous passez d’une langue à l’autre.</translation>
    </message>
    <message>
        <source>Saved in Keychain</source>
        <translation>Enregistrée dans votre trousseau</translation>
    </message>
    <message>
        <source>No key saved</source>
        <translation>Aucune clé enregistrée</translation>
    </message>
    <message>
        <source>Enter a replacement key</source>
        <translation>Saisissez une clé de remplacement</translation>
    </message>
    <message>
        <source>Opening library…</source>
        <translation>Ouverture de la bibliothèque…</translation>
    </message>
    <message>
        <source>Loading models…</source>
        <translation>Chargement des modèles…</translation>
    </message>
    <message>
        <source>Refresh model catalog</source>
        <translation>Actualiser le catalogue des modèles</translation>
    </message>
    <message>
        <source>Analytics is not configured in this build. No events are sent.</source>
        <translation>Les statistiques ne sont pas configurées dans cette version. Aucun événement n’est envoyé.</translation>
    </message>
    <message>
        <source>Optional usage events go to %1. They include a random analytics identifier and app version, never your audio, notes, project names, filenames, receipts or keys. Turning this off clears unsent events and removes the local identifier. It does not erase events already sent.</source>
        <translation>Si vous l’acceptez, des événements d’utilisation sont envoyés à %1. Ils contiennent un identifiant aléatoire et la version de l’application, jamais votre son, vos notes, les noms de projets ou de fichiers, les reçus ni les clés. La désactivation efface les événements non envoyés et l’identifiant local. Elle n’efface pas les événements déjà envoyés.</translation>
    </message>
    <message>
        <source>Key saved in Keychain</source>
        <translation>Clé enregistrée dans votre trousseau</translation>
    </message>
    <message>
        <source>Key removed</source>
        <translation>Clé retirée</translation>
    </message>
    <message>
        <source>Launch at login could not be changed. Check Login Items in System Settings.</source>
        <translation>Le lancement à l’ouverture de session n’a pas pu être modifié. Vérifiez les applications au démarrage dans les réglages de votre bureau.</translation>
    </message>
    <message>
        <source>Apple on-device</source>
        <translation>Sur l’appareil</translation>
    </message>
    <message>
        <source>OpenRouter</source>
        <translation>OpenRouter</translation>
    </message>
    <message>
        <source>Vesko access</source>
        <translation>Accès de Vesko</translation>
    </message>
    <message>
        <source>My personal key</source>
        <translation>Ma clé personnelle</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatique</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Désactivé</translation>
    </message>
    <message>
        <source>Click once to stop. Drag to move. Right-click for the menu.</source>
        <translation>Un clic pour terminer. Glissez pour déplacer. Clic droit pour le menu.</translation>
    </message>
    <message>
        <source>Dictionary…</source>
        <translation>Dictionnaire…</translation>
    </message>
    <message>
        <source>Welcome Tour…</source>
        <translation>Visite guidée…</translation>
    </message>
    <message>
        <source>About Vesko</source>
        <translation>À propos de Vesko</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>No speech was heard. The recording is saved.</source>
        <translation>Aucune parole n’a été entendue. L’enregistrement est conservé.</translation>
    </message>
    <message>
        <source>The speech engine that you chose isn't there. Choose one in Settings. Your audio is saved.</source>
        <translation>Le moteur vocal choisi n’est pas là. Choisissez-en un dans les réglages. L’audio est conservé.</translation>
    </message>
    <message>
        <source>Vesko is busy. Try again in a moment.</source>
        <translation>Vesko est occupé. Réessayez dans un instant.</translation>
    </message>
    <message>
        <source>This engine isn't there.</source>
        <translation>Ce moteur n’est pas là.</translation>
    </message>
    <message>
        <source>“%1”, %2 seconds after the end</source>
        <translation>« %1 », %2 secondes après la fin</translation>
    </message>
    <message>
        <source>Loading %1: %2 %</source>
        <translation>Chargement de %1 : %2 %</translation>
    </message>
    <message>
        <source>The model %1 is there.</source>
        <translation>Le modèle %1 est là.</translation>
    </message>
    <message>
        <source>A program of your own</source>
        <translation>Un programme à vous</translation>
    </message>
    <message>
        <source>Any program that prints the words of a WAV file.</source>
        <translation>Tout programme qui écrit les mots d’un fichier WAV.</translation>
    </message>
    <message>
        <source>A server of your own</source>
        <translation>Un serveur à vous</translation>
    </message>
    <message>
        <source>Any server with OpenAI's way to transcribe. The sound leaves this computer unless the server runs on it.</source>
        <translation>Tout serveur qui transcrit comme celui d’OpenAI. Le son quitte cet ordinateur si le serveur n’y tourne pas.</translation>
    </message>
    <message>
        <source>finds out the language</source>
        <translation>reconnaît la langue</translation>
    </message>
    <message>
        <source>lower case, no punctuation</source>
        <translation>minuscules, sans ponctuation</translation>
    </message>
    <message>
        <source>Name a program and its arguments, with {wav} where the sound's file belongs. {language} and {model} stand for the language and the model.</source>
        <translation>Indiquez un programme et ses arguments, avec {wav} à la place du fichier son. {language} et {model} désignent la langue et le modèle.</translation>
    </message>
    <message>
        <source>Enter an address that begins with https://. Plain http:// is for servers on this computer.</source>
        <translation>Entrez une adresse qui commence par https://. http:// est réservé aux serveurs de cet ordinateur.</translation>
    </message>
    <message>
        <source>The chosen engine isn't there. Until you choose another, recordings are only saved.</source>
        <translation>Le moteur choisi n’est pas là. Tant que vous n’en choisissez pas un autre, les enregistrements sont seulement conservés.</translation>
    </message>
    <message>
        <source>For other languages, punctuation and far fewer wrong words, install whisper.cpp (its program whisper-cli is found by itself) and get a model below.</source>
        <translation>Pour d’autres langues, la ponctuation et bien moins d’erreurs, installez whisper.cpp (son programme whisper-cli est trouvé tout seul) et obtenez un modèle ci-dessous.</translation>
    </message>
    <message>
        <source>Speech on this computer</source>
        <translation>Parole sur cet ordinateur</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Utilisé</translation>
    </message>
    <message>
        <source>Try</source>
        <translation>Essayer</translation>
    </message>
    <message>
        <source>Done speaking</source>
        <translation>Terminé</translation>
    </message>
    <message>
        <source>Speak a sentence now. Nothing of it is stored.</source>
        <translation>Dites maintenant une phrase. Rien n’en est conservé.</translation>
    </message>
    <message>
        <source>Looking for engines…</source>
        <translation>Recherche de moteurs…</translation>
    </message>
    <message>
        <source>Server address</source>
        <translation>Adresse du serveur</translation>
    </message>
    <message>
        <source>Model of the server</source>
        <translation>Modèle du serveur</translation>
    </message>
    <message>
        <source>Key of the server</source>
        <translation>Clé du serveur</translation>
    </message>
    <message>
        <source>Save the key of the server</source>
        <translation>Enregistrer la clé du serveur</translation>
    </message>
    <message>
        <source>Get a model</source>
        <translation>Obtenir un modèle</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Charger</translation>
    </message>
    <message>
        <source>Tell the engine the terms of your dictionary</source>
        <translation>Indiquer au moteur les termes du dictionnaire</translation>
    </message>
    <message>
        <source>Pause loading</source>
        <translation>Suspendre</translation>
    </message>
    <message numerus="yes">
        <source>%1 languages</source>
        <translation>
            <numerusform>%1 langue</numerusform>
            <numerusform>%1 langues</numerusform>
        </translation>
    </message>
    <message>
        <source>No password store (keyring) runs here, so Vesko has no place for keys. Start one, such as GNOME Keyring, KWallet or KeePassXC, and try again.</source>
        <translation>Aucun trousseau de mots de passe ne fonctionne ici : Vesko n’a pas de place pour les clés. Lancez-en un, comme GNOME Keyring, KWallet ou KeePassXC, puis réessayez.</translation>
    </message>
    <message>
        <source>Audio is sent to OpenRouter and its selected transcription provider. Provider retention policies apply. Your personal key's balance is used.</source>
        <translation>L’audio est envoyé à OpenRouter et au service de transcription qu’il choisit. Les règles de conservation du service s’appliquent. C’est le solde de votre clé personnelle qui est utilisé.</translation>
    </message>
    <message>
        <source>The library could not be opened</source>
        <translation>La bibliothèque n’a pas pu être ouverte</translation>
    </message>
    <message>
        <source>Vesko found no program for your desktop's settings. Please open them yourself.</source>
        <translation>Vesko n’a trouvé aucun programme de réglages du bureau. Veuillez les ouvrir vous-même.</translation>
    </message>
    <message>
        <source>A speech model for %1 is installed.</source>
        <translation>Un modèle vocal pour %1 est installé.</translation>
    </message>
    <message>
        <source>No speech model for %1 is installed. Install the package pocketsphinx-en-us, or choose another engine or OpenRouter in Settings.</source>
        <translation>Aucun modèle vocal pour %1 n’est installé. Installez le paquet pocketsphinx-en-us, ou choisissez un autre moteur ou OpenRouter dans les réglages.</translation>
    </message>
    <message>
        <source>No speech model for %1 is installed. Choose another engine or OpenRouter in Settings.</source>
        <translation>Aucun modèle vocal pour %1 n’est installé. Choisissez un autre moteur ou OpenRouter dans les réglages.</translation>
    </message>
    <message>
        <source>No speech model</source>
        <translation>Aucun modèle vocal</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Détails</translation>
    </message>
    <message>
        <source>Accessibility is on. Vesko can paste into the field you started in.</source>
        <translation>L’accessibilité est activée. Vesko peut coller dans le champ où vous avez commencé.</translation>
    </message>
    <message>
        <source>Vesko notices the dictation key.</source>
        <translation>Vesko remarque la touche de dictée.</translation>
    </message>
    <message>
        <source>Moved to Trash</source>
        <translation>Placée dans la corbeille</translation>
    </message>
    <message>
        <source>Removed “%1”</source>
        <translation>« %1 » retiré</translation>
    </message>
    <message>
        <source>Not in this text</source>
        <translation>Absent de ce texte</translation>
    </message>
    <message>
        <source>Matches in this text: %1</source>
        <translation>Occurrences dans ce texte : %1</translation>
    </message>
    <message>
        <source>Match %1 of %2</source>
        <translation>Occurrence %1 sur %2</translation>
    </message>
    <message>
        <source>Previous match</source>
        <translation>Occurrence précédente</translation>
    </message>
    <message>
        <source>Next match</source>
        <translation>Occurrence suivante</translation>
    </message>
    <message>
        <source>Version %1, build %2</source>
        <translation>Version %1, build %2</translation>
    </message>
    <message>
        <source>MIT License</source>
        <translation>Licence MIT</translation>
    </message>
    <message>
        <source>%1 to dictate</source>
        <translation>%1 pour dicter</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espace</translation>
    </message>
    <message>
        <source>Super</source>
        <translation>Super</translation>
    </message>
    <message>
        <source>Ctrl</source>
        <translation>Ctrl</translation>
    </message>
    <message>
        <source>Alt</source>
        <translation>Alt</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Maj</translation>
    </message>
    <message>
        <source>Press %1 and speak</source>
        <translation>Appuyez sur %1 et parlez</translation>
    </message>
    <message>
        <source>Press again to finish. Vesko pastes into the field you started in.</source>
        <translation>Appuyez à nouveau pour terminer. Vesko colle dans le champ où vous avez commencé.</translation>
    </message>
    <message>
        <source>Or press %1</source>
        <translation>Ou appuyez sur %1</translation>
    </message>
    <message>
        <source>Give the clipboard back after a paste</source>
        <translation>Rendre le presse-papiers après le collage</translation>
    </message>
    <message>
        <source>What you had copied before, up to 16 MB, is there again once the field shows the dictated text. Where that can&apos;t be seen, the dictated text stays on the clipboard.</source>
        <translation>Ce que vous aviez copié, jusqu’à 16 Mo, revient dès que le champ affiche le texte dicté. Là où cela ne se voit pas, le texte dicté reste dans le presse-papiers.</translation>
    </message>
    <message>
        <source>Pasted into the original field. The clipboard holds what it held before.</source>
        <translation>Collé dans le champ d’origine. Le presse-papiers contient de nouveau ce qu’il contenait.</translation>
    </message>
    <message>
        <source>%1 is unavailable: another program has it. Use the floating button, or choose another shortcut in the settings.</source>
        <translation>%1 n’est pas disponible : un autre programme l’utilise. Utilisez le bouton flottant ou choisissez un autre raccourci dans les réglages.</translation>
    </message>
    <message>
        <source>Global shortcut: %1</source>
        <translation>Raccourci global : %1</translation>
    </message>
    <message>
        <source>Press the new shortcut…</source>
        <translation>Appuyez sur le nouveau raccourci…</translation>
    </message>
    <message>
        <source>%1 can&apos;t be had: another program has it. Choose another shortcut.</source>
        <translation>%1 n’est pas libre : un autre programme l’utilise. Choisissez un autre raccourci.</translation>
    </message>
    <message>
        <source>%1 is what text is pasted with, by Vesko too. Choose another shortcut.</source>
        <translation>%1 sert à coller du texte, à Vesko aussi. Choisissez un autre raccourci.</translation>
    </message>
    <message>
        <source>%1 is typed with. A shortcut needs Ctrl, Alt or Super.</source>
        <translation>%1 sert à écrire. Un raccourci demande Ctrl, Alt ou Super.</translation>
    </message>
    <message>
        <source>No shortcut can be made with this key.</source>
        <translation>Cette touche ne peut pas servir de raccourci.</translation>
    </message>
    <message>
        <source>Pastes into the field you started in. Vesko switches it on, and it stays on.</source>
        <translation>Colle dans le champ où vous avez commencé. Vesko l’active, et elle le reste.</translation>
    </message>
    <message>
        <source>This desktop has no accessibility bus, so nothing was turned on. Install the package at-spi2-core, and start the session anew.</source>
        <translation>Ce bureau n’a pas de bus d’accessibilité, rien n’a donc été activé. Installez le paquet at-spi2-core et relancez la session.</translation>
    </message>
    <message>
        <source>Click once to record. Drag to move. Right-click for the menu.</source>
        <translation>Un clic pour enregistrer. Glissez pour déplacer. Clic droit pour le menu.</translation>
    </message>
    <message>
        <source>Click once to record. Drag to move. Right-click for the menu. Shortcut: %1</source>
        <translation>Un clic pour enregistrer. Glissez pour déplacer. Clic droit pour le menu. Raccourci : %1</translation>
    </message>
    <message>
        <source>Program and arguments</source>
        <translation>Programme et arguments</translation>
    </message>
    <message>
        <source>Model of the program</source>
        <translation>Modèle du programme</translation>
    </message>
    <message>
        <source>Cleaning up</source>
        <translation>Mise au propre</translation>
    </message>
    <message>
        <source>Translating</source>
        <translation>Traduction en cours</translation>
    </message>
    <message>
        <source>Open note</source>
        <translation>Ouvrir la note</translation>
    </message>
    <message>
        <source>To the clipboard</source>
        <translation>Dans le presse-papiers</translation>
    </message>
    <message>
        <source>Into %1</source>
        <translation>Dans %1</translation>
    </message>
    <message>
        <source>Into the field where you began</source>
        <translation>Dans le champ où vous avez commencé</translation>
    </message>
    <message>
        <source>Export library…</source>
        <translation>Exporter la bibliothèque…</translation>
    </message>
    <message>
        <source>Import library…</source>
        <translation>Importer une bibliothèque…</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importer</translation>
    </message>
    <message>
        <source>Exporting the library…</source>
        <translation>Export de la bibliothèque…</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>Import en cours…</translation>
    </message>
    <message>
        <source>Library exported</source>
        <translation>Bibliothèque exportée</translation>
    </message>
    <message>
        <source>All notes of this archive are here already.</source>
        <translation>Toutes les notes de cette archive sont déjà ici.</translation>
    </message>
    <message>
        <source>Export dictionary…</source>
        <translation>Exporter le dictionnaire…</translation>
    </message>
    <message>
        <source>Import dictionary…</source>
        <translation>Importer un dictionnaire…</translation>
    </message>
    <message>
        <source>Dictionary exported</source>
        <translation>Dictionnaire exporté</translation>
    </message>
    <message>
        <source>This file is no table of terms.</source>
        <translation>Ce fichier n’est pas une table de termes.</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Jamais</translation>
    </message>
    <message>
        <source>After 30 days</source>
        <translation>Après 30 jours</translation>
    </message>
    <message>
        <source>After 90 days</source>
        <translation>Après 90 jours</translation>
    </message>
    <message>
        <source>After a year</source>
        <translation>Après un an</translation>
    </message>
    <message>
        <source>Cancelled. Nothing was changed.</source>
        <translation>Annulé. Rien n’a été modifié.</translation>
    </message>
    <message>
        <source>This archive was made by a newer Vesko. Update the app before importing it.</source>
        <translation>Cette archive vient d’une version plus récente de Vesko. Mettez l’application à jour avant de l’importer.</translation>
    </message>
    <message>
        <source>This archive unpacks to more than Vesko takes in. Nothing was changed.</source>
        <translation>Une fois décompressée, cette archive dépasse ce que Vesko accepte. Rien n’a été modifié.</translation>
    </message>
    <message>
        <source>This file is no library that Vesko has exported, or it is damaged. Nothing was changed.</source>
        <translation>Ce fichier n’est pas une bibliothèque exportée par Vesko, ou il est endommagé. Rien n’a été modifié.</translation>
    </message>
    <message>
        <source>There is not enough room on the disk. Your saved files were preserved.</source>
        <translation>L’espace disque est insuffisant. Vos fichiers enregistrés ont été préservés.</translation>
    </message>
    <message>
        <source>Audio removed to save room: %1</source>
        <translation>Son supprimé pour gagner de la place : %1</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Importer…</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exporter…</translation>
    </message>
    <message>
        <source>Empty Trash…</source>
        <translation>Vider la corbeille…</translation>
    </message>
    <message>
        <source>Delete all notes in the Trash permanently?</source>
        <translation>Supprimer définitivement toutes les notes de la corbeille ?</translation>
    </message>
    <message>
        <source>Their recordings go with them. This cannot be undone.</source>
        <translation>Leurs enregistrements sont supprimés aussi. Cette action est irréversible.</translation>
    </message>
    <message>
        <source>Empty Trash</source>
        <translation>Vider la corbeille</translation>
    </message>
    <message>
        <source>Your recordings take %1.</source>
        <translation>Vos enregistrements occupent %1.</translation>
    </message>
    <message>
        <source>Remove recordings</source>
        <translation>Supprimer les enregistrements</translation>
    </message>
    <message>
        <source>Only the audio goes: texts and their history stay, and so does each recording without a text.</source>
        <translation>Seul le son est supprimé : les textes et leur historique restent, ainsi que tout enregistrement sans texte.</translation>
    </message>
    <message>
        <source>Remove the audio of old recordings?</source>
        <translation>Supprimer le son des anciens enregistrements ?</translation>
    </message>
    <message>
        <source>What is older goes now, and the rest as it grows old. This cannot be undone.</source>
        <translation>Ce qui est plus ancien disparaît maintenant, et le reste à mesure qu’il vieillit. Cette action est irréversible.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message>
        <source>Delete old notes in the Trash?</source>
        <translation>Supprimer les anciennes notes de la corbeille ?</translation>
    </message>
    <message>
        <source>Notes imported: %1</source>
        <translation>Notes importées : %1</translation>
    </message>
    <message>
        <source>Terms imported: %1</source>
        <translation>Termes importés : %1</translation>
    </message>
    <message>
        <source>Not pasted</source>
        <translation>Non collé</translation>
    </message>
    <message>
        <source>Not transcribed</source>
        <translation>Non transcrit</translation>
    </message>
    <message>
        <source>Copy again</source>
        <translation>Copier à nouveau</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Réessayer</translation>
    </message>
    <message>
        <source>Show the text in notifications</source>
        <translation>Afficher le texte dans les notifications</translation>
    </message>
    <message>
        <source>Original saved. Waiting for the key from your password store (keyring), which may be asking you to unlock it.</source>
        <translation>Original enregistré. En attente de la clé de votre magasin de mots de passe (trousseau), qui vous demande peut-être de le déverrouiller.</translation>
    </message>
    <message>
        <source>Diagnose…</source>
        <translation>Diagnostic…</translation>
    </message>
    <message>
        <source>Diagnosis</source>
        <translation>Diagnostic</translation>
    </message>
    <message>
        <source>What works on this computer and what doesn&apos;t. Nothing that you said or wrote is in it, and no key: it can go into a report as it is.</source>
        <translation>Ce qui fonctionne sur cet ordinateur et ce qui ne fonctionne pas. Rien de ce que vous avez dit ou écrit n’y figure, ni aucune clé : il peut être joint tel quel à un rapport.</translation>
    </message>
    <message>
        <source>Looking at this computer…</source>
        <translation>Examen de cet ordinateur…</translation>
    </message>
    <message>
        <source>This computer could not be looked at.</source>
        <translation>Cet ordinateur n’a pas pu être examiné.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Rechercher</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Aucun résultat</translation>
    </message>
    <message>
        <source>Uses on-device speech only when this language is supported. Automatic lets the engine find out the language. If a model is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>N’utilise la reconnaissance sur l’appareil que si cette langue est prise en charge. « Automatique » laisse le moteur trouver la langue. Si un modèle manque, le son reste enregistré et vous pouvez choisir OpenRouter.</translation>
    </message>
    <message>
        <source>Automatic leaves it to your program or server to find out the language. If it is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>« Automatique » laisse votre programme ou votre serveur trouver la langue. S’il n’est pas disponible, le son reste enregistré et vous pouvez choisir OpenRouter.</translation>
    </message>
    <message numerus="yes">
        <source>%1 notes selected</source>
        <translation>
            <numerusform>%1 note sélectionnée</numerusform>
            <numerusform>%1 notes sélectionnées</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %1 notes to Trash?</source>
        <translation>
            <numerusform>Mettre %1 note à la corbeille ?</numerusform>
            <numerusform>Mettre %1 notes à la corbeille ?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %1 notes and their recordings permanently?</source>
        <translation>
            <numerusform>Supprimer définitivement %1 note et ses enregistrements ?</numerusform>
            <numerusform>Supprimer définitivement %1 notes et leurs enregistrements ?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 notes moved to Trash</source>
        <translation>
            <numerusform>%1 note mise à la corbeille</numerusform>
            <numerusform>%1 notes mises à la corbeille</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 notes moved to another project</source>
        <translation>
            <numerusform>%1 note déplacée vers un autre projet</numerusform>
            <numerusform>%1 notes déplacées vers un autre projet</numerusform>
        </translation>
    </message>
    <message>
        <source>Note moved to another project</source>
        <translation>Note déplacée vers un autre projet</translation>
    </message>
    <message>
        <source>Move to project</source>
        <translation>Déplacer vers un projet</translation>
    </message>
    <message>
        <source>Restore notes</source>
        <translation>Restaurer les notes</translation>
    </message>
    <message>
        <source>You can restore the notes and their recordings from Trash.</source>
        <translation>Vous pouvez restaurer les notes et leurs enregistrements depuis la corbeille.</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Dossier</translation>
    </message>
    <message>
        <source>Cancel transcription</source>
        <translation>Annuler la transcription</translation>
    </message>
    <message>
        <source>Cancelled. The text as it was heard is in its note.</source>
        <translation>Annulé. Le texte, tel qu’il a été entendu, se trouve dans sa note.</translation>
    </message>
    <message>
        <source>Transcription cancelled. The recording is saved.</source>
        <translation>Transcription annulée. L’enregistrement est conservé.</translation>
    </message>
    <message>
        <source>This note is in the Trash</source>
        <translation>Cette note est dans la corbeille</translation>
    </message>
    <message>
        <source>Playback speed</source>
        <translation>Vitesse de lecture</translation>
    </message>
    <message>
        <source>Position in the recording</source>
        <translation>Position dans l’enregistrement</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Afficher dans le dossier</translation>
    </message>
    <message>
        <source>Vesko is running already, on the display %1, and shows its window there.</source>
        <translation>Vesko est déjà en cours d’exécution, sur l’écran %1, et y montre sa fenêtre.</translation>
    </message>
    <message>
        <source>Vesko is running already, but does not answer</source>
        <translation>Vesko est déjà en cours d’exécution, mais ne répond pas</translation>
    </message>
    <message>
        <source>Vesko is running already, in another session, but does not answer</source>
        <translation>Vesko est déjà en cours d’exécution, dans une autre session, mais ne répond pas</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>No setting has these words</source>
        <translation>Aucun réglage ne contient ces mots</translation>
    </message>
    <message>
        <source>Translation and cleanup</source>
        <translation>Traduction et nettoyage</translation>
    </message>
    <message>
        <source>Search settings</source>
        <translation>Rechercher dans les réglages</translation>
    </message>
    <message>
        <source>Notes found: %1</source>
        <translation>Notes trouvées : %1</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>Ajouter %1</translation>
    </message>
    <message>
        <source>The desktop's settings did not take %1. Choose keys there.</source>
        <translation>Les réglages du bureau n’ont pas accepté %1. Choisissez-y des touches.</translation>
    </message>
    <message>
        <source>%1 gives programs no shortcuts of their own, but Vesko can add one to its settings: see “Capture and insertion” in the settings of Vesko.</source>
        <translation>%1 ne donne pas de raccourcis propres aux programmes, mais Vesko peut en ajouter un à ses réglages : voir « Capture et insertion » dans les réglages de Vesko.</translation>
    </message>
    <message>
        <source>When you dictate into another program, %1 asks whether Vesko may control the keyboard: once, or each time if it does not remember your answer. Allow it in the window that opens. Vesko presses the keys that paste, and no others.</source>
        <translation>Quand vous dictez dans un autre programme, %1 demande si Vesko peut contrôler le clavier : une fois, ou chaque fois si la réponse n’est pas retenue. Autorisez-le dans la fenêtre qui s’ouvre. Vesko appuie sur les touches qui collent, et sur aucune autre.</translation>
    </message>
    <message>
        <source>Copied. The desktop was still asking you whether Vesko may press the keys that paste. Paste it with Command V.</source>
        <translation>Copié. Le bureau vous demandait encore si Vesko peut appuyer sur les touches qui collent. Collez le texte avec Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Vesko was not allowed to press the keys that paste. Paste it with Command V.</source>
        <translation>Copié. Vesko n’a pas été autorisé à appuyer sur les touches qui collent. Collez le texte avec Ctrl+V.</translation>
    </message>
</context>
</TS>
