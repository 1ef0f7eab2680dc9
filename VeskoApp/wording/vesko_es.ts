<?xml version="1.0" encoding="utf-8"?>
<!-- Spanish. Nobody whose first language it is has read this catalogue yet. -->
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>Vesko</name>
    <message>
        <source>Code</source>
        <translation>Código</translation>
    </message>
    <message>
        <source>Sign-in code</source>
        <translation>Código de acceso</translation>
    </message>
    <message>
        <source>Use another email</source>
        <translation>Usar otro correo</translation>
    </message>
    <message>
        <source>Continue with Google</source>
        <translation>Continuar con Google</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>or</source>
        <translation>o</translation>
    </message>
    <message>
        <source>Email address</source>
        <translation>Dirección de correo</translation>
    </message>
    <message>
        <source>Send code</source>
        <translation>Enviar código</translation>
    </message>
    <message>
        <source>Release Fn to finish</source>
        <translation>Suelte la tecla para terminar</translation>
    </message>
    <message>
        <source>Release Fn to finish recording</source>
        <translation>Suelte la tecla para terminar la grabación</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Rehacer</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Cortar</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copiar</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Pegar</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleccionar todo</translation>
    </message>
    <message>
        <source>Recognized term</source>
        <translation>Término reconocido</translation>
    </message>
    <message>
        <source>For example: tallki</source>
        <translation>Por ejemplo: tallki</translation>
    </message>
    <message>
        <source>Use instead</source>
        <translation>Escribir en su lugar</translation>
    </message>
    <message>
        <source>For example: Vesko</source>
        <translation>Por ejemplo: Vesko</translation>
    </message>
    <message>
        <source>Dictionary</source>
        <translation>Diccionario</translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>Editar %1</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>Quitar %1</translation>
    </message>
    <message>
        <source>Use term</source>
        <translation>Usar el término</translation>
    </message>
    <message>
        <source>Use %1</source>
        <translation>Usar %1</translation>
    </message>
    <message>
        <source>Vesko Dictionary</source>
        <translation>Diccionario de Vesko</translation>
    </message>
    <message>
        <source>Your words, your spelling</source>
        <translation>Sus palabras, su ortografía</translation>
    </message>
    <message>
        <source>Corrections stay on this Mac. Original transcripts are kept.</source>
        <translation>Las correcciones se quedan en este equipo. Las transcripciones originales se conservan.</translation>
    </message>
    <message>
        <source>Save last corrections</source>
        <translation>Guardar las últimas correcciones</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>Search dictionary</source>
        <translation>Buscar en el diccionario</translation>
    </message>
    <message>
        <source>Whole terms are replaced after recognition. New unrelated wording stays a suggestion. You can edit, disable or remove any term.</source>
        <translation>Tras el reconocimiento se sustituyen términos enteros. Una redacción nueva sin parecido queda como sugerencia. Puede editar, desactivar o quitar cualquier término.</translation>
    </message>
    <message>
        <source>Which language do you speak?</source>
        <translation>¿Qué idioma habla usted?</translation>
    </message>
    <message>
        <source>I switch between languages</source>
        <translation>Cambio de un idioma a otro</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Menú</translation>
    </message>
    <message>
        <source>Your voice, kept close</source>
        <translation>Su voz, siempre cerca</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Biblioteca</translation>
    </message>
    <message>
        <source>All notes</source>
        <translation>Todas las notas</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>Proyectos</translation>
    </message>
    <message>
        <source>New project</source>
        <translation>Proyecto nuevo</translation>
    </message>
    <message>
        <source>Rename project</source>
        <translation>Cambiar el nombre del proyecto</translation>
    </message>
    <message>
        <source>Trash</source>
        <translation>Papelera</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Ajustes</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Project name</source>
        <translation>Nombre del proyecto</translation>
    </message>
    <message>
        <source>Note title</source>
        <translation>Título de la nota</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Proyecto</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Sin proyecto</translation>
    </message>
    <message>
        <source>Add voice</source>
        <translation>Añadir voz</translation>
    </message>
    <message>
        <source>Saved on this Mac</source>
        <translation>Guardado en este equipo</translation>
    </message>
    <message>
        <source>Note copied</source>
        <translation>Nota copiada</translation>
    </message>
    <message>
        <source>Copy note</source>
        <translation>Copiar la nota</translation>
    </message>
    <message>
        <source>Copy note (⌘C)</source>
        <translation>Copiar la nota (Ctrl+C)</translation>
    </message>
    <message>
        <source>Note actions</source>
        <translation>Acciones de la nota</translation>
    </message>
    <message>
        <source>Note text</source>
        <translation>Texto de la nota</translation>
    </message>
    <message>
        <source>Original recordings</source>
        <translation>Grabaciones originales</translation>
    </message>
    <message>
        <source>Copy text</source>
        <translation>Copiar el texto</translation>
    </message>
    <message>
        <source>Export Markdown…</source>
        <translation>Exportar Markdown…</translation>
    </message>
    <message>
        <source>Restore note</source>
        <translation>Restaurar la nota</translation>
    </message>
    <message>
        <source>Move to Trash…</source>
        <translation>Mover a la papelera…</translation>
    </message>
    <message>
        <source>Delete permanently…</source>
        <translation>Eliminar definitivamente…</translation>
    </message>
    <message>
        <source>Move this note to Trash?</source>
        <translation>¿Mover esta nota a la papelera?</translation>
    </message>
    <message>
        <source>You can restore the note and its recordings from Trash.</source>
        <translation>Puede restaurar la nota y sus grabaciones desde la papelera.</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Mover a la papelera</translation>
    </message>
    <message>
        <source>Delete this note and its recordings permanently?</source>
        <translation>¿Eliminar definitivamente esta nota y sus grabaciones?</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>Esto no se puede deshacer.</translation>
    </message>
    <message>
        <source>Delete permanently</source>
        <translation>Eliminar definitivamente</translation>
    </message>
    <message>
        <source>The file that is there will be replaced.</source>
        <translation>El archivo existente se sustituirá.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Archivo</translation>
    </message>
    <message>
        <source>Search notes and transcripts</source>
        <translation>Buscar en notas y transcripciones</translation>
    </message>
    <message>
        <source>Play or stop original recording</source>
        <translation>Reproducir o detener la grabación original</translation>
    </message>
    <message>
        <source>Original transcript</source>
        <translation>Transcripción original</translation>
    </message>
    <message>
        <source>Edited text</source>
        <translation>Texto editado</translation>
    </message>
    <message>
        <source>Copy edited text</source>
        <translation>Copiar el texto editado</translation>
    </message>
    <message>
        <source>Transcribe this original again?</source>
        <translation>¿Transcribir de nuevo este original?</translation>
    </message>
    <message>
        <source>Uses your current model settings. OpenRouter requests use your credit and can incur another charge. The result stays in this note and is never pasted automatically.</source>
        <translation>Usa los ajustes de modelo actuales. Las solicitudes a OpenRouter gastan su saldo y pueden suponer otro cargo. El resultado se queda en esta nota y nunca se pega automáticamente.</translation>
    </message>
    <message>
        <source>Transcribe</source>
        <translation>Transcribir</translation>
    </message>
    <message>
        <source>New note</source>
        <translation>Nota nueva</translation>
    </message>
    <message>
        <source>Create a text note</source>
        <translation>Crear una nota de texto</translation>
    </message>
    <message>
        <source>Records into the library without pasting into another app</source>
        <translation>Graba en la biblioteca sin pegar en otra aplicación</translation>
    </message>
    <message>
        <source>Dismiss message</source>
        <translation>Cerrar el mensaje</translation>
    </message>
    <message>
        <source>Your thoughts, ready to use</source>
        <translation>Sus ideas, listas para usar</translation>
    </message>
    <message>
        <source>Select a note to edit its text, replay the original, or add more by voice.</source>
        <translation>Seleccione una nota para editar su texto, escuchar el original o añadir más con la voz.</translation>
    </message>
    <message>
        <source>How to dictate</source>
        <translation>Cómo dictar</translation>
    </message>
    <message>
        <source>Hold Fn and speak</source>
        <translation>Mantenga la tecla pulsada y hable</translation>
    </message>
    <message>
        <source>Release to finish. Vesko pastes into the field you started in.</source>
        <translation>Suéltela para terminar. Vesko pega en el campo en el que empezó.</translation>
    </message>
    <message>
        <source>Tap Fn for longer thoughts</source>
        <translation>Toque la tecla para ideas más largas</translation>
    </message>
    <message>
        <source>Recording keeps going hands-free. Tap Fn again to finish.</source>
        <translation>La grabación sigue sin manos. Toque la tecla otra vez para terminar.</translation>
    </message>
    <message>
        <source>Works the same way when Fn is busy.</source>
        <translation>Funciona igual cuando la tecla está ocupada.</translation>
    </message>
    <message>
        <source>Click the floating circle</source>
        <translation>Haga clic en el círculo flotante</translation>
    </message>
    <message>
        <source>It sits in the corner and shows when Vesko is listening.</source>
        <translation>Está en la esquina y muestra cuándo escucha Vesko.</translation>
    </message>
    <message>
        <source>Keep notes in the library</source>
        <translation>Guarde notas en la biblioteca</translation>
    </message>
    <message>
        <source>Record a voice note, edit the text, and group notes by project.</source>
        <translation>Grabe una nota de voz, edite el texto y agrupe las notas por proyectos.</translation>
    </message>
    <message>
        <source>Speak once. Keep the thought. Use the words.</source>
        <translation>Hable una vez. Conserve la idea. Use las palabras.</translation>
    </message>
    <message>
        <source>Faster than typing</source>
        <translation>Más rápido que teclear</translation>
    </message>
    <message>
        <source>Say it in any app. Vesko writes it where your cursor is.</source>
        <translation>Dígalo en cualquier aplicación. Vesko lo escribe donde está el cursor.</translation>
    </message>
    <message>
        <source>Nothing gets lost</source>
        <translation>No se pierde nada</translation>
    </message>
    <message>
        <source>Every original recording stays on this Mac. Retry any transcription.</source>
        <translation>Cada grabación original se queda en este equipo. Puede repetir cualquier transcripción.</translation>
    </message>
    <message>
        <source>Yours to edit</source>
        <translation>Puede editarlo todo</translation>
    </message>
    <message>
        <source>Notes, projects and a personal dictionary that learns your words.</source>
        <translation>Notas, proyectos y un diccionario personal que aprende sus palabras.</translation>
    </message>
    <message>
        <source>Welcome to Vesko</source>
        <translation>Le damos la bienvenida a Vesko</translation>
    </message>
    <message>
        <source>Allow access</source>
        <translation>Permitir el acceso</translation>
    </message>
    <message>
        <source>macOS asks once for each. You can change them later in Settings.</source>
        <translation>Lo que Vesko necesita para funcionar. Puede volver a verlo más tarde en los ajustes.</translation>
    </message>
    <message>
        <source>You are signed in</source>
        <translation>Ha iniciado sesión</translation>
    </message>
    <message>
        <source>Create your Vesko account</source>
        <translation>Crear su cuenta de Vesko</translation>
    </message>
    <message>
        <source>Notes and recordings stay on this Mac.</source>
        <translation>Las notas y las grabaciones se quedan en este equipo.</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Atrás</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Ahora no</translation>
    </message>
    <message>
        <source>Stop dictation</source>
        <translation>Terminar el dictado</translation>
    </message>
    <message>
        <source>Start dictation</source>
        <translation>Empezar el dictado</translation>
    </message>
    <message>
        <source>Open Vesko</source>
        <translation>Abrir Vesko</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Ajustes…</translation>
    </message>
    <message>
        <source>Quit Vesko</source>
        <translation>Salir de Vesko</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Cuenta</translation>
    </message>
    <message>
        <source>Signed in as</source>
        <translation>Sesión iniciada como</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>Método</translation>
    </message>
    <message>
        <source>Sign out</source>
        <translation>Cerrar sesión</translation>
    </message>
    <message>
        <source>Delete account…</source>
        <translation>Eliminar la cuenta…</translation>
    </message>
    <message>
        <source>Delete your Vesko account?</source>
        <translation>¿Eliminar su cuenta de Vesko?</translation>
    </message>
    <message>
        <source>Your account is removed from Vesko's service. Notes and recordings on this Mac are kept.</source>
        <translation>Su cuenta se elimina del servicio de Vesko. Las notas y las grabaciones de este equipo se conservan.</translation>
    </message>
    <message>
        <source>Delete account</source>
        <translation>Eliminar la cuenta</translation>
    </message>
    <message>
        <source>Capture and insertion</source>
        <translation>Captura e inserción</translation>
    </message>
    <message>
        <source>Global shortcut</source>
        <translation>Atajo global</translation>
    </message>
    <message>
        <source>Also use Fn / Globe to start and stop</source>
        <translation>Usar también una sola tecla para empezar y terminar</translation>
    </message>
    <message>
        <source>Dictation key</source>
        <translation>Tecla de dictado</translation>
    </message>
    <message>
        <source>Fn starts recording when pressed. Tap to keep recording, or hold for 0.35 seconds and release to finish. A second tap stops a latched recording. Fn combinations do not send audio for transcription. Set Fn/Globe to Do Nothing in System Settings &gt; Keyboard if macOS opens its own dictation or emoji picker.</source>
        <translation>La tecla empieza a grabar al pulsarla. Tóquela para seguir grabando, o manténgala 0,35 segundos y suéltela para terminar. Un segundo toque detiene una grabación en curso. Las combinaciones con otras teclas no envían audio para transcribirlo. Si su escritorio hace algo propio con esta tecla, desactívelo en los ajustes del teclado o elija otra tecla.</translation>
    </message>
    <message>
        <source>Show floating capture button</source>
        <translation>Mostrar el botón flotante de captura</translation>
    </message>
    <message>
        <source>Click it to record. Drag it to move it; a drag never starts a recording. Right-click it for the Vesko menu.</source>
        <translation>Haga clic para grabar. Arrástrelo para moverlo; arrastrar nunca inicia una grabación. Haga clic derecho para ver el menú de Vesko.</translation>
    </message>
    <message>
        <source>The Vesko icon is hidden behind the camera area of the menu bar. Hold Command and drag menu bar icons to make room, or right-click the floating button for the same menu.</source>
        <translation>Este escritorio no muestra iconos de estado. Haga clic derecho en el botón flotante para ver el mismo menú.</translation>
    </message>
    <message>
        <source>Play sounds when recording starts and stops</source>
        <translation>Reproducir sonidos al empezar y terminar la grabación</translation>
    </message>
    <message>
        <source>Preview start sound</source>
        <translation>Escuchar el sonido de inicio</translation>
    </message>
    <message>
        <source>Preview stop sound</source>
        <translation>Escuchar el sonido de fin</translation>
    </message>
    <message>
        <source>Paste dictation into the original field</source>
        <translation>Pegar el dictado en el campo original</translation>
    </message>
    <message>
        <source>Text is copied after dictation. Automatic paste needs Accessibility access and an unchanged focused field. Secure or unsupported fields use copy only. Vesko never presses Return.</source>
        <translation>El texto se copia tras el dictado. Para pegarlo automáticamente hacen falta la accesibilidad y que el campo enfocado no cambie. En campos protegidos o no compatibles solo se copia. Vesko nunca pulsa Intro.</translation>
    </message>
    <message>
        <source>OpenRouter access</source>
        <translation>Acceso a OpenRouter</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Usar</translation>
    </message>
    <message>
        <source>Vesko access is ready</source>
        <translation>El acceso de Vesko está listo</translation>
    </message>
    <message>
        <source>Key status</source>
        <translation>Estado de la clave</translation>
    </message>
    <message>
        <source>Your personal API key</source>
        <translation>Su clave de API personal</translation>
    </message>
    <message>
        <source>Save key</source>
        <translation>Guardar la clave</translation>
    </message>
    <message>
        <source>Remove key</source>
        <translation>Quitar la clave</translation>
    </message>
    <message>
        <source>OpenRouter account</source>
        <translation>Cuenta de OpenRouter</translation>
    </message>
    <message>
        <source>Your key belongs to this macOS account. Vesko does not share it with other users or top up your balance.</source>
        <translation>Su clave pertenece a su cuenta de usuario en este equipo. Vesko no la comparte con otros usuarios ni recarga su saldo.</translation>
    </message>
    <message>
        <source>Speech recognition</source>
        <translation>Reconocimiento de voz</translation>
    </message>
    <message>
        <source>Transcribe with</source>
        <translation>Transcribir con</translation>
    </message>
    <message>
        <source>Spoken language</source>
        <translation>Idioma hablado</translation>
    </message>
    <message>
        <source>Uses on-device speech only when this language is supported. Automatic uses your Mac's language. If a model is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>Usa la voz en el equipo solo si admite este idioma. «Automático» usa el idioma de su equipo. Si falta un modelo, el audio queda guardado y puede elegir OpenRouter.</translation>
    </message>
    <message>
        <source>Speech model</source>
        <translation>Modelo de voz</translation>
    </message>
    <message>
        <source>Speech model ID</source>
        <translation>Identificador del modelo de voz</translation>
    </message>
    <message>
        <source>Audio is sent to OpenRouter and its selected transcription provider. Provider retention policies apply. Vesko access or your personal key determines which balance is used.</source>
        <translation>El audio se envía a OpenRouter y al proveedor de transcripción elegido allí. Rigen las normas de conservación de los proveedores. El acceso de Vesko o su clave personal determinan qué saldo se usa.</translation>
    </message>
    <message>
        <source>Recordings stop after 5 minutes in this version. Original audio stays on this Mac.</source>
        <translation>En esta versión las grabaciones terminan a los 5 minutos. El audio original se queda en este equipo.</translation>
    </message>
    <message>
        <source>Availability and storage</source>
        <translation>Disponibilidad y almacenamiento</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Abrir al iniciar sesión</translation>
    </message>
    <message>
        <source>macOS approval is needed in Login Items.</source>
        <translation>Su escritorio debe permitir Vesko entre las aplicaciones de inicio.</translation>
    </message>
    <message>
        <source>Open Login Items</source>
        <translation>Abrir las aplicaciones de inicio</translation>
    </message>
    <message>
        <source>Open data folder</source>
        <translation>Abrir la carpeta de datos</translation>
    </message>
    <message>
        <source>Recordings and notes are stored locally. Export individual notes as Markdown from the note menu. Cloud sync is not enabled.</source>
        <translation>Las grabaciones y las notas se guardan en este equipo. Exporte cada nota como Markdown desde su menú. La sincronización en la nube no está activada.</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Traducción</translation>
    </message>
    <message>
        <source>Translate dictation into</source>
        <translation>Traducir el dictado al</translation>
    </message>
    <message>
        <source>Text model ID</source>
        <translation>Identificador del modelo de texto</translation>
    </message>
    <message>
        <source>Off by default. When on, each transcript is sent to the text model below for a separate paid request. The original transcript stays saved with the recording.</source>
        <translation>Desactivado al principio. Si lo activa, cada transcripción se envía al modelo de texto de abajo en una solicitud de pago aparte. La transcripción original queda guardada con la grabación.</translation>
    </message>
    <message>
        <source>Optional AI cleanup</source>
        <translation>Revisión opcional con IA</translation>
    </message>
    <message>
        <source>Clean up punctuation and repeated words</source>
        <translation>Corregir la puntuación y las palabras repetidas</translation>
    </message>
    <message>
        <source>Suggested text models</source>
        <translation>Modelos de texto sugeridos</translation>
    </message>
    <message>
        <source>Adds a separate paid request. With Apple speech, only the transcript is sent for cleanup. The original transcript stays available.</source>
        <translation>Añade una solicitud de pago aparte. Con la voz en el equipo, solo se envía la transcripción para revisarla. La transcripción original sigue disponible.</translation>
    </message>
    <message>
        <source>Vesko Settings</source>
        <translation>Ajustes de Vesko</translation>
    </message>
    <message>
        <source>Personal dictionary</source>
        <translation>Diccionario personal</translation>
    </message>
    <message>
        <source>Use personal dictionary</source>
        <translation>Usar el diccionario personal</translation>
    </message>
    <message>
        <source>Learn from corrected dictation</source>
        <translation>Aprender de los dictados corregidos</translation>
    </message>
    <message>
        <source>Learning watches only the fragment Vesko pasted into the same focused field, for up to two minutes. Return followed by a cleared field is used as its send signal. Similar word corrections are enabled automatically; other replacements are saved as suggestions. For other send buttons, review the last corrections in Dictionary. Nothing is learned from secure or unreadable fields.</source>
        <translation>Solo se observa el fragmento que Vesko pegó en el mismo campo enfocado, durante dos minutos como máximo. Intro seguido de un campo vaciado cuenta como envío. Las correcciones de palabras parecidas se activan automáticamente; otras sustituciones se guardan como sugerencias. Si envía con un botón, revise las últimas correcciones en el diccionario. No se aprende nada de campos protegidos o ilegibles.</translation>
    </message>
    <message>
        <source>Open Dictionary</source>
        <translation>Abrir el diccionario</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Permisos</translation>
    </message>
    <message>
        <source>Microphone is used only while Recording. Accessibility checks the paste destination and, when learning is enabled, its inserted fragment. Input Monitoring observes Fn and a Return send signal; keystrokes are not saved.</source>
        <translation>El micrófono se usa solo durante la grabación. La accesibilidad comprueba el destino del pegado y, si el aprendizaje está activado, el fragmento insertado. Vesko vigila en el teclado su propia tecla e Intro como señal de envío; las pulsaciones no se guardan.</translation>
    </message>
    <message>
        <source>Open Privacy &amp; Security</source>
        <translation>Abrir los ajustes de privacidad</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Privacidad</translation>
    </message>
    <message>
        <source>Share anonymous usage analytics</source>
        <translation>Compartir estadísticas de uso anónimas</translation>
    </message>
    <message>
        <source>Enter a valid email address.</source>
        <translation>Escriba una dirección de correo válida.</translation>
    </message>
    <message>
        <source>That code is not correct. Check the latest email and try again.</source>
        <translation>El código no es correcto. Mire el último correo e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>This code has expired. Request a new one.</source>
        <translation>Este código ha caducado. Pida uno nuevo.</translation>
    </message>
    <message>
        <source>Too many attempts. Request a new code.</source>
        <translation>Demasiados intentos. Pida un código nuevo.</translation>
    </message>
    <message>
        <source>Too many requests. Wait a few minutes and try again.</source>
        <translation>Demasiadas solicitudes. Espere unos minutos e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>This sign-in method is not available yet. Choose another one.</source>
        <translation>Este método de acceso aún no está disponible. Elija otro.</translation>
    </message>
    <message>
        <source>Sign-in was cancelled.</source>
        <translation>Se canceló el inicio de sesión.</translation>
    </message>
    <message>
        <source>Your session has ended. Sign in again.</source>
        <translation>Su sesión ha terminado. Vuelva a iniciar sesión.</translation>
    </message>
    <message>
        <source>You are offline. Your notes stay on this Mac. Reconnect to sign in.</source>
        <translation>No tiene conexión. Sus notas se quedan en este equipo. Vuelva a conectarse para iniciar sesión.</translation>
    </message>
    <message>
        <source>Vesko could not reach its account service. Try again in a moment.</source>
        <translation>Vesko no pudo conectar con su servicio de cuentas. Inténtelo de nuevo en un momento.</translation>
    </message>
    <message>
        <source>Capture was interrupted. The original file may be recovered or retried.</source>
        <translation>La captura se interrumpió. Quizá se pueda recuperar el archivo original o volver a transcribirlo.</translation>
    </message>
    <message>
        <source>Untitled note</source>
        <translation>Nota sin título</translation>
    </message>
    <message>
        <source>Voice capture</source>
        <translation>Captura de voz</translation>
    </message>
    <message>
        <source>Dictation</source>
        <translation>Dictado</translation>
    </message>
    <message>
        <source>Voice note</source>
        <translation>Nota de voz</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Grabando</translation>
    </message>
    <message>
        <source>Audio saved</source>
        <translation>Audio guardado</translation>
    </message>
    <message>
        <source>Transcribing</source>
        <translation>Transcribiendo</translation>
    </message>
    <message>
        <source>Transcribing: %1 %</source>
        <translation>Transcribiendo: %1 %</translation>
    </message>
    <message>
        <source>Transcribed</source>
        <translation>Transcrito</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Con errores</translation>
    </message>
    <message>
        <source>Interrupted</source>
        <translation>Interrumpido</translation>
    </message>
    <message>
        <source>In progress</source>
        <translation>En curso</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Hecho</translation>
    </message>
    <message>
        <source>Enter a project name between 1 and 80 characters.</source>
        <translation>Escriba un nombre de proyecto de entre 1 y 80 caracteres.</translation>
    </message>
    <message>
        <source>A project with this name already exists.</source>
        <translation>Ya existe un proyecto con este nombre.</translation>
    </message>
    <message>
        <source>Enter two different terms between 1 and 80 characters. The dictionary holds up to 1,000 terms.</source>
        <translation>Escriba dos términos distintos de entre 1 y 80 caracteres. El diccionario admite hasta 1000 términos.</translation>
    </message>
    <message>
        <source>This recognized term is already in your dictionary. Edit its existing entry.</source>
        <translation>Este término reconocido ya está en su diccionario. Edite la entrada existente.</translation>
    </message>
    <message>
        <source>This item is no longer available.</source>
        <translation>Este elemento ya no está disponible.</translation>
    </message>
    <message>
        <source>The recording path is invalid. The library was preserved.</source>
        <translation>La ruta de la grabación no es válida. La biblioteca se ha conservado.</translation>
    </message>
    <message>
        <source>This library was made by a newer Vesko. Update the app before opening it.</source>
        <translation>Esta biblioteca se creó con un Vesko más nuevo. Actualice la aplicación antes de abrirla.</translation>
    </message>
    <message>
        <source>The library could not be read. Your files were preserved. Open the data folder to recover its backup.</source>
        <translation>No se pudo leer la biblioteca. Sus archivos se han conservado. Abra la carpeta de datos para recuperar la copia de seguridad.</translation>
    </message>
    <message>
        <source>Vesko is already using this library. Open the running app instead.</source>
        <translation>Vesko ya está usando esta biblioteca. Abra la aplicación que está en marcha.</translation>
    </message>
    <message>
        <source>No speech was returned. Your audio is saved. You can retry with another model.</source>
        <translation>No se reconoció voz. Su audio está guardado. Puede intentarlo de nuevo con otro modelo.</translation>
    </message>
    <message>
        <source>Add your OpenRouter key in Settings. Your audio stays saved.</source>
        <translation>Añada su clave de OpenRouter en los ajustes. Su audio queda guardado.</translation>
    </message>
    <message>
        <source>Allow OpenRouter processing in Settings, or choose Apple on-device speech. Your original stays saved.</source>
        <translation>Permita el tratamiento por OpenRouter en los ajustes o elija la voz en el equipo. Su original queda guardado.</translation>
    </message>
    <message>
        <source>Choose a model in Settings.</source>
        <translation>Elija un modelo en los ajustes.</translation>
    </message>
    <message>
        <source>This audio is too large for one request. The original is saved. Use a shorter recording.</source>
        <translation>Este audio es demasiado grande para una sola solicitud. El original está guardado. Haga una grabación más corta.</translation>
    </message>
    <message>
        <source>The provider returned an unreadable result. Your audio is saved.</source>
        <translation>El proveedor devolvió un resultado ilegible. Su audio está guardado.</translation>
    </message>
    <message>
        <source>Vesko could not save this change. Check free disk space and access to the data folder.</source>
        <translation>Vesko no pudo guardar este cambio. Compruebe el espacio libre y el acceso a la carpeta de datos.</translation>
    </message>
    <message>
        <source>OpenRouter rejected this key. Check it in Settings.</source>
        <translation>OpenRouter rechazó esta clave. Compruébela en los ajustes.</translation>
    </message>
    <message>
        <source>OpenRouter needs more credit. Top up your account, then retry.</source>
        <translation>OpenRouter necesita más saldo. Recargue su cuenta e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>The provider is busy or its limit was reached. Try again later.</source>
        <translation>El proveedor está ocupado o se alcanzó su límite. Inténtelo más tarde.</translation>
    </message>
    <message>
        <source>The provider could not complete this request. Your audio is saved. Try again later.</source>
        <translation>El proveedor no pudo completar esta solicitud. Su audio está guardado. Inténtelo más tarde.</translation>
    </message>
    <message>
        <source>Translation was unavailable. The original transcript was kept.</source>
        <translation>La traducción no estaba disponible. La transcripción original se conserva.</translation>
    </message>
    <message>
        <source>AI cleanup was unavailable. The original transcript was kept.</source>
        <translation>La revisión con IA no estaba disponible. La transcripción original se conserva.</translation>
    </message>
    <message>
        <source>Sign in to use Vesko Plus. Your audio is saved.</source>
        <translation>Inicie sesión para usar Vesko Plus. Su audio está guardado.</translation>
    </message>
    <message>
        <source>Vesko Plus models are not available yet. Your audio is saved. Choose Apple on-device speech or your own key.</source>
        <translation>Los modelos de Vesko Plus aún no están disponibles. Su audio está guardado. Elija la voz en el equipo o su propia clave.</translation>
    </message>
    <message>
        <source>This month's Vesko Plus allowance is used up. Your audio is saved. It renews at the start of next month.</source>
        <translation>Ha agotado lo que incluye Vesko Plus este mes. Su audio está guardado. Se renueva a principios del mes próximo.</translation>
    </message>
    <message>
        <source>Today's Vesko Plus limit is reached. Your audio is saved. Try again tomorrow.</source>
        <translation>Se alcanzó el límite de hoy de Vesko Plus. Su audio está guardado. Inténtelo mañana.</translation>
    </message>
    <message>
        <source>Vesko Plus paused cloud requests for a while after unusually heavy use. Your audio is saved. Try again later.</source>
        <translation>Vesko Plus ha pausado las solicitudes un tiempo tras un uso inusualmente intenso. Su audio está guardado. Inténtelo más tarde.</translation>
    </message>
    <message>
        <source>Vesko Plus is busy right now. Your audio is saved. Try again later.</source>
        <translation>Vesko Plus está ocupado ahora mismo. Su audio está guardado. Inténtelo más tarde.</translation>
    </message>
    <message>
        <source>The result did not arrive. Your audio is saved. Vesko did not repeat the request, so you are not charged twice; retry when you are ready.</source>
        <translation>El resultado no llegó. Su audio está guardado. Vesko no repitió la solicitud para que no pague dos veces; inténtelo cuando quiera.</translation>
    </message>
    <message>
        <source>This request already finished once. Retry to transcribe it again.</source>
        <translation>Esta solicitud ya se completó una vez. Inténtelo de nuevo para transcribirla otra vez.</translation>
    </message>
    <message>
        <source>The model refused this request. Your audio is saved. Retry or choose another model.</source>
        <translation>El modelo rechazó esta solicitud. Su audio está guardado. Inténtelo de nuevo o elija otro modelo.</translation>
    </message>
    <message>
        <source>Vesko Plus returned an unreadable result. Your audio is saved.</source>
        <translation>Vesko Plus devolvió un resultado ilegible. Su audio está guardado.</translation>
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
        <translation>Correo</translation>
    </message>
    <message>
        <source>Apple ID with hidden email</source>
        <translation>Apple ID con correo oculto</translation>
    </message>
    <message>
        <source>We sent a 6-digit code to %1. It works for 10 minutes.</source>
        <translation>Hemos enviado un código de 6 cifras a %1. Vale durante 10 minutos.</translation>
    </message>
    <message>
        <source>Signed out. Your notes stay on this Mac.</source>
        <translation>Sesión cerrada. Sus notas se quedan en este equipo.</translation>
    </message>
    <message>
        <source>Your Vesko account was deleted. Notes and recordings on this Mac were kept.</source>
        <translation>Su cuenta de Vesko se ha eliminado. Las notas y las grabaciones de este equipo se han conservado.</translation>
    </message>
    <message>
        <source>Enter the 6-digit code sent to %1</source>
        <translation>Escriba el código de 6 cifras enviado a %1</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>Comprobando…</translation>
    </message>
    <message>
        <source>Sign in</source>
        <translation>Iniciar sesión</translation>
    </message>
    <message>
        <source>Opens Google in a private sign-in window</source>
        <translation>Abre Google en su navegador</translation>
    </message>
    <message>
        <source>Google sign-in is not configured in this build</source>
        <translation>El acceso con Google no está configurado en esta versión</translation>
    </message>
    <message>
        <source>Allow Speech Recognition for Vesko in System Settings, or choose OpenRouter.</source>
        <translation>Permita a Vesko el reconocimiento de voz en los ajustes de su escritorio o elija OpenRouter.</translation>
    </message>
    <message>
        <source>On-device speech is unavailable for this language. Choose another language or OpenRouter. Your audio is saved.</source>
        <translation>La voz en el equipo no está disponible para este idioma. Elija otro idioma u OpenRouter. Su audio está guardado.</translation>
    </message>
    <message>
        <source>On-device speech is not available right now. Your audio is saved. Try again or choose OpenRouter.</source>
        <translation>La voz en el equipo no está disponible ahora mismo. Su audio está guardado. Inténtelo de nuevo o elija OpenRouter.</translation>
    </message>
    <message>
        <source>On-device transcription timed out. Your audio is saved.</source>
        <translation>La transcripción en el equipo tardó demasiado. Su audio está guardado.</translation>
    </message>
    <message>
        <source>On-device transcription failed. Your audio is saved. Retry or choose OpenRouter.</source>
        <translation>La transcripción en el equipo ha fallado. Su audio está guardado. Inténtelo de nuevo o elija OpenRouter.</translation>
    </message>
    <message>
        <source>Ready to capture</source>
        <translation>Listo para capturar</translation>
    </message>
    <message>
        <source>Ready to capture. Speech is recognized on this computer, without a key.</source>
        <translation>Listo para capturar. La voz se reconoce en este equipo, sin clave.</translation>
    </message>
    <message>
        <source>Ready to capture. Speech is recognized on this computer until your password store (keyring) says whether it holds a key.</source>
        <translation>Listo para capturar. La voz se reconoce en este equipo hasta que su almacén de contraseñas (llavero) diga si contiene una clave.</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Starting microphone</source>
        <translation>Activando el micrófono</translation>
    </message>
    <message>
        <source>Allow Microphone for Vesko in System Settings &gt; Privacy &amp; Security &gt; Microphone, then try again.</source>
        <translation>Permita a Vesko el micrófono en los ajustes de su escritorio e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Recording. Press the shortcut again to finish.</source>
        <translation>Grabando. Pulse el atajo otra vez para terminar.</translation>
    </message>
    <message>
        <source>No sound comes from the microphone. What was said before is kept; the recording goes on when sound comes again.</source>
        <translation>No llega sonido del micrófono. Lo dicho hasta ahora se conserva; la grabación sigue cuando vuelva a llegar sonido.</translation>
    </message>
    <message>
        <source>Original saved. Transcribing…</source>
        <translation>Original guardado. Transcribiendo…</translation>
    </message>
    <message>
        <source>The model catalog could not be loaded. Your current choices were kept.</source>
        <translation>No se pudo cargar el catálogo de modelos. Se han conservado sus elecciones.</translation>
    </message>
    <message>
        <source>Model catalog updated</source>
        <translation>Catálogo de modelos actualizado</translation>
    </message>
    <message>
        <source>Recording cancelled. The audio is saved.</source>
        <translation>Grabación cancelada. El audio se ha guardado.</translation>
    </message>
    <message>
        <source>Fn combination used. Audio saved without transcription.</source>
        <translation>Se usó una combinación de teclas. Audio guardado sin transcribir.</translation>
    </message>
    <message>
        <source>%1 will be used for dictation</source>
        <translation>Se usará %1 para dictar</translation>
    </message>
    <message>
        <source>Vesko will use it for dictation. Another language transcribes the last recording again.</source>
        <translation>Vesko lo usará para dictar. Otro idioma transcribe de nuevo la última grabación.</translation>
    </message>
    <message>
        <source>Vesko will use it for dictation.</source>
        <translation>Vesko lo usará para dictar.</translation>
    </message>
    <message numerus="yes">
        <source>Added %1 dictionary corrections. Review them in Dictionary.</source>
        <translation>
            <numerusform>Se ha añadido %1 corrección al diccionario. Revísela en el diccionario.</numerusform>
            <numerusform>Se han añadido %1 correcciones al diccionario. Revíselas en el diccionario.</numerusform>
        </translation>
    </message>
    <message>
        <source>Dictionary saved</source>
        <translation>Diccionario guardado</translation>
    </message>
    <message>
        <source>This note has no text to copy yet</source>
        <translation>Esta nota aún no tiene texto que copiar</translation>
    </message>
    <message>
        <source>Note copied to clipboard</source>
        <translation>Nota copiada al portapapeles</translation>
    </message>
    <message>
        <source>Markdown exported</source>
        <translation>Markdown exportado</translation>
    </message>
    <message>
        <source>Saved to your note</source>
        <translation>Guardado en su nota</translation>
    </message>
    <message>
        <source>Copied. Paste sent to the original field.</source>
        <translation>Copiado. Se envió el pegado al campo original.</translation>
    </message>
    <message>
        <source>The text is saved, but the clipboard could not be updated. Copy it from your note.</source>
        <translation>El texto está guardado, pero no se pudo actualizar el portapapeles. Cópielo de su nota.</translation>
    </message>
    <message>
        <source>Copied to clipboard</source>
        <translation>Copiado al portapapeles</translation>
    </message>
    <message>
        <source>Audio saved. Transcription needs attention.</source>
        <translation>Audio guardado. La transcripción requiere su atención.</translation>
    </message>
    <message>
        <source>Translation needs an OpenRouter key. The original transcript was kept.</source>
        <translation>La traducción necesita una clave de OpenRouter. La transcripción original se conserva.</translation>
    </message>
    <message>
        <source>AI cleanup needs an OpenRouter key. The original transcript was kept.</source>
        <translation>La revisión con IA necesita una clave de OpenRouter. La transcripción original se conserva.</translation>
    </message>
    <message>
        <source>Recording stopped unexpectedly. Your original file was kept.</source>
        <translation>La grabación se detuvo de forma inesperada. Su archivo original se ha conservado.</translation>
    </message>
    <message>
        <source>Recording was interrupted by an audio error. Your original file was kept.</source>
        <translation>Un error de audio interrumpió la grabación. Su archivo original se ha conservado.</translation>
    </message>
    <message>
        <source>The microphone could not start. Check your audio input and try again.</source>
        <translation>No se pudo iniciar el micrófono. Compruebe la entrada de audio e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>The network is unavailable. Your recording is saved. Reconnect and retry.</source>
        <translation>La red no está disponible. Su grabación está guardada. Vuelva a conectarse e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>The provider timed out. Your recording is saved. A retry may incur another provider charge.</source>
        <translation>El proveedor tardó demasiado en responder. Su grabación está guardada. Otro intento puede suponer otro cargo del proveedor.</translation>
    </message>
    <message>
        <source>The network request could not finish. Your recording is saved. Retry when ready.</source>
        <translation>La solicitud por la red no se pudo completar. Su grabación está guardada. Inténtelo cuando quiera.</translation>
    </message>
    <message>
        <source>Vesko could not complete this operation. Your saved files were preserved. Check the data folder and try again.</source>
        <translation>Vesko no pudo completar esta operación. Sus archivos guardados se han conservado. Compruebe la carpeta de datos e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>1 term</source>
        <translation>1 término</translation>
    </message>
    <message numerus="yes">
        <source>%1 terms</source>
        <translation>
            <numerusform>%1 término</numerusform>
            <numerusform>%1 términos</numerusform>
        </translation>
    </message>
    <message>
        <source>No matching terms</source>
        <translation>Ningún término coincide</translation>
    </message>
    <message>
        <source>Try another search.</source>
        <translation>Pruebe otra búsqueda.</translation>
    </message>
    <message>
        <source>Your personal dictionary</source>
        <translation>Su diccionario personal</translation>
    </message>
    <message>
        <source>Add names, product terms and frequent corrections. Similar spelling fixes can be learned after you edit and send a pasted dictation.</source>
        <translation>Añada nombres, términos de productos y correcciones frecuentes. Vesko puede aprender ortografías parecidas cuando edite y envíe un dictado pegado.</translation>
    </message>
    <message>
        <source>Save term</source>
        <translation>Guardar el término</translation>
    </message>
    <message>
        <source>Add term</source>
        <translation>Añadir término</translation>
    </message>
    <message numerus="yes">
        <source>Last edited paste: %1 word corrections</source>
        <translation>
            <numerusform>Último texto editado: %1 palabra corregida</numerusform>
            <numerusform>Último texto editado: %1 palabras corregidas</numerusform>
        </translation>
    </message>
    <message>
        <source>Added by you</source>
        <translation>Añadido por usted</translation>
    </message>
    <message>
        <source>Learned spelling</source>
        <translation>Ortografía aprendida</translation>
    </message>
    <message>
        <source>Suggestion, review before enabling</source>
        <translation>Sugerencia, revísela antes de activarla</translation>
    </message>
    <message>
        <source>Copied. Allow Accessibility for Vesko in System Settings to paste automatically.</source>
        <translation>Copiado. Active la accesibilidad en los ajustes de su escritorio para pegar automáticamente.</translation>
    </message>
    <message>
        <source>Copied. No text field was focused when you started. Paste it with Command V.</source>
        <translation>Copiado. Ningún campo de texto tenía el foco cuando empezó. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Vesko could not see which field was in use, so it did not paste. Paste it with Command V.</source>
        <translation>Copiado. Vesko no pudo ver qué campo estaba en uso, así que no pegó el texto. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>this desktop</source>
        <translation>este escritorio</translation>
    </message>
    <message>
        <source>%1 gives programs no shortcuts of their own. In its configuration, let keys of your choice run “vesko --toggle”.</source>
        <translation>%1 no da a los programas atajos propios. En su configuración, haga que las teclas que elija ejecuten «vesko --toggle».</translation>
    </message>
    <message>
        <source>%1 shows no program the keys that are pressed in another one.</source>
        <translation>%1 no muestra a ningún programa las teclas que se pulsan en otro.</translation>
    </message>
    <message>
        <source>Without Xwayland %1 lets Vesko copy and paste nothing while another program is in use. The text is in your note.</source>
        <translation>Sin Xwayland, %1 no deja que Vesko copie ni pegue mientras se usa otro programa. El texto está en su nota.</translation>
    </message>
    <message>
        <source>On %1 Vesko can't paste into other programs. Text is copied, and you paste it yourself.</source>
        <translation>En %1 Vesko no puede pegar en otros programas. El texto se copia y usted lo pega.</translation>
    </message>
    <message>
        <source>%1 does not show Vesko when you press Return, so your corrections wait for your review.</source>
        <translation>%1 no muestra a Vesko cuándo pulsa Intro, así que sus correcciones esperan su revisión.</translation>
    </message>
    <message>
        <source>Not offered here</source>
        <translation>No disponible aquí</translation>
    </message>
    <message>
        <source>Copied. You moved to another field, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copiado. Pasó a otro campo, así que Vesko no pegó. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. This field does not accept automatic paste. Paste it with Command V.</source>
        <translation>Copiado. Este campo no admite el pegado automático. Péguelo con Ctrl+V, en GVim con Editar &gt; Pegar.</translation>
    </message>
    <message>
        <source>Copied. No active window was known when you started, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copiado. Al empezar no se conocía ninguna ventana activa, así que Vesko no pegó. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>A running dictation is being saved</source>
        <translation>Se está guardando un dictado en curso</translation>
    </message>
    <message>
        <source>Copied. A key was held down, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copiado. Había una tecla pulsada, así que Vesko no pegó. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Another program was holding the keyboard, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copiado. Otro programa retenía el teclado, así que Vesko no pegó. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Paste was sent, but the field does not show the text. If it is missing, paste it with Command V.</source>
        <translation>Copiado. Se envió el pegado, pero el campo no muestra el texto. Si falta, péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Shift, Alt or another such key was latched or locked, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copiado. Mayús, Alt u otra tecla semejante estaba fijada o bloqueada, así que Vesko no pegó. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Slow keys are switched on in the desktop's settings, so Vesko can't paste. Paste it with Command V.</source>
        <translation>Copiado. Las teclas lentas están activadas en los ajustes del escritorio, así que Vesko no puede pegar. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. The paste shortcut could not be sent. Paste it with Command V.</source>
        <translation>Copiado. No se pudo enviar el atajo de pegar. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. The session was locked, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copiado. La sesión estaba bloqueada, así que Vesko no pegó. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. This program does not show its text fields to Vesko. Paste it with Command V or the program's own shortcut.</source>
        <translation>Copiado. Este programa no muestra sus campos de texto a Vesko. Péguelo con Ctrl+V, en un terminal con Ctrl+Mayús+V, en Emacs con Ctrl+Y.</translation>
    </message>
    <message>
        <source>Copied. Vesko does not paste where letters are hidden, as in a password.</source>
        <translation>Copiado. Vesko no pega donde las letras están ocultas, como en una contraseña.</translation>
    </message>
    <message>
        <source>Copied. You started in Vesko itself, not in another program. Paste it with Command V.</source>
        <translation>Copiado. Empezó en el propio Vesko, no en otro programa. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>The download was paused. What has arrived is kept.</source>
        <translation>La descarga se ha pausado. Lo que ha llegado se conserva.</translation>
    </message>
    <message>
        <source>The library is too large. Vesko can open up to 1 GB. Your files were preserved.</source>
        <translation>La biblioteca es demasiado grande. Vesko puede abrir hasta 1 GB. Sus archivos se han conservado.</translation>
    </message>
    <message>
        <source>The model arrived damaged and was removed. Try again.</source>
        <translation>El modelo llegó dañado y se ha eliminado. Inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>The model can't be reached. What has arrived is kept. Check the connection and try again.</source>
        <translation>No se puede acceder al modelo. Lo que ha llegado se conserva. Compruebe la conexión e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>The model can't be saved.</source>
        <translation>No se puede guardar el modelo.</translation>
    </message>
    <message>
        <source>The server doesn't have this model. Try again later.</source>
        <translation>El servidor no tiene este modelo. Inténtelo más tarde.</translation>
    </message>
    <message>
        <source>There isn't enough room on the disk for this model.</source>
        <translation>No hay espacio suficiente en el disco para este modelo.</translation>
    </message>
    <message>
        <source>Copied. More than two minutes passed, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copiado. Pasaron más de dos minutos, así que Vesko no pegó. Péguelo con Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Paste it when you are ready.</source>
        <translation>Copiado. Péguelo cuando quiera.</translation>
    </message>
    <message>
        <source>Trash is empty</source>
        <translation>La papelera está vacía</translation>
    </message>
    <message>
        <source>Notes you move to Trash can be restored here.</source>
        <translation>Las notas que mueva a la papelera se pueden restaurar aquí.</translation>
    </message>
    <message>
        <source>No matching notes</source>
        <translation>Ninguna nota coincide</translation>
    </message>
    <message>
        <source>Try another search or clear the search field.</source>
        <translation>Pruebe otra búsqueda o borre el texto del buscador.</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>Borrar la búsqueda</translation>
    </message>
    <message>
        <source>A place for your next thought</source>
        <translation>Un lugar para su próxima idea</translation>
    </message>
    <message>
        <source>Record your voice or start a text note. Your originals stay on this Mac.</source>
        <translation>Grabe su voz o empiece una nota de texto. Sus originales se quedan en este equipo.</translation>
    </message>
    <message>
        <source>Recording %1</source>
        <translation>Grabando %1</translation>
    </message>
    <message>
        <source>Finish recording</source>
        <translation>Terminar la grabación</translation>
    </message>
    <message>
        <source>Record note</source>
        <translation>Grabar una nota</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>Procesando</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Ayer</translation>
    </message>
    <message>
        <source>Provider cost not reported</source>
        <translation>El proveedor no indicó el coste</translation>
    </message>
    <message>
        <source>Reported cost: %1</source>
        <translation>Coste indicado: %1</translation>
    </message>
    <message>
        <source>Retry…</source>
        <translation>Repetir…</translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation>Paso %1 de %2</translation>
    </message>
    <message>
        <source>Start using Vesko</source>
        <translation>Empezar a usar Vesko</translation>
    </message>
    <message>
        <source>Get started</source>
        <translation>Empezar</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Continuar</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Micrófono</translation>
    </message>
    <message>
        <source>Records only while you dictate.</source>
        <translation>Graba solo mientras usted dicta.</translation>
    </message>
    <message>
        <source>Speech Recognition</source>
        <translation>Reconocimiento de voz</translation>
    </message>
    <message>
        <source>Apple on-device transcription.</source>
        <translation>Transcripción en este equipo, con un modelo instalado.</translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Accesibilidad</translation>
    </message>
    <message>
        <source>Input Monitoring</source>
        <translation>Teclado</translation>
    </message>
    <message>
        <source>Notices the Fn key. Keystrokes are not saved.</source>
        <translation>Detecta la tecla de dictado. Las pulsaciones no se guardan.</translation>
    </message>
    <message>
        <source>Allowed</source>
        <translation>Permitido</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>No permitido</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Revisar</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Permitir</translation>
    </message>
    <message>
        <source>Enable Vesko in Accessibility. If it is missing, add Vesko.app from your Applications folder.</source>
        <translation>La accesibilidad está activada para esta sesión. Puede que tenga que reiniciar los programas ya abiertos para que Vesko pueda pegar en ellos.</translation>
    </message>
    <message>
        <source>Enable Vesko in Input Monitoring. If it is missing, use the + button and select Vesko.app. If macOS asks, choose Quit &amp; Reopen. Command Shift Space remains available.</source>
        <translation>Vesko vigila el teclado donde el escritorio lo permite a los programas. Elija otra tecla de dictado si su escritorio usa esta. El atajo sigue disponible.</translation>
    </message>
    <message>
        <source>Microphone access is ready</source>
        <translation>El acceso al micrófono está listo</translation>
    </message>
    <message>
        <source>Allow Vesko in System Settings &gt; Privacy &amp; Security &gt; Microphone.</source>
        <translation>No se pudo abrir ningún micrófono. Conecte uno, o elíjalo y quítele el silencio en los ajustes de sonido de su escritorio.</translation>
    </message>
    <message>
        <source>Vesko could not access your key in Keychain. Unlock your Mac and try again.</source>
        <translation>Vesko no pudo acceder a la clave en su almacén de contraseñas (depósito de claves). Desbloquéelo e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Function key</source>
        <translation>Tecla Fn</translation>
    </message>
    <message>
        <source>Right Ctrl</source>
        <translation>Ctrl derecha</translation>
    </message>
    <message>
        <source>Right Alt</source>
        <translation>Alt derecha</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>Bloq Despl</translation>
    </message>
    <message>
        <source>Automatic lets the speech model guess, and a short phrase can come back in the wrong language. After your next dictation Vesko asks which language you speak and remembers it.</source>
        <translation>Con «Automático» el modelo de voz adivina, y una frase corta puede volver en otro idioma. Tras su próximo dictado Vesko le preguntará qué idioma habla y lo recordará.</translation>
    </message>
    <message>
        <source>Vesko tells the speech model you speak %1. Choose Automatic if you switch between languages.</source>
        <translation>Vesko le dice al modelo de voz que usted habla %1. Elija «Automático» si cambia de un idioma a otro.</translation>
    </message>
    <message>
        <source>Saved in Keychain</source>
        <translation>Guardada en su depósito de claves</translation>
    </message>
    <message>
        <source>No key saved</source>
        <translation>Ninguna clave guardada</translation>
    </message>
    <message>
        <source>Enter a replacement key</source>
        <translation>Escriba una clave nueva</translation>
    </message>
    <message>
        <source>Opening library…</source>
        <translation>Abriendo la biblioteca…</translation>
    </message>
    <message>
        <source>Loading models…</source>
        <translation>Cargando los modelos…</translation>
    </message>
    <message>
        <source>Refresh model catalog</source>
        <translation>Actualizar el catálogo de modelos</translation>
    </message>
    <message>
        <source>Analytics is not configured in this build. No events are sent.</source>
        <translation>Las estadísticas no están configuradas en esta versión. No se envía ningún evento.</translation>
    </message>
    <message>
        <source>Optional usage events go to %1. They include a random analytics identifier and app version, never your audio, notes, project names, filenames, receipts or keys. Turning this off clears unsent events and removes the local identifier. It does not erase events already sent.</source>
        <translation>Si lo permite, los eventos de uso van a %1. Incluyen un identificador aleatorio y la versión de la aplicación, nunca su audio, notas, nombres de proyectos o archivos, recibos ni claves. Al desactivarlo se borran los eventos no enviados y el identificador de este equipo. No se borran los eventos ya enviados.</translation>
    </message>
    <message>
        <source>Key saved in Keychain</source>
        <translation>Clave guardada en su depósito de claves</translation>
    </message>
    <message>
        <source>Key removed</source>
        <translation>Clave quitada</translation>
    </message>
    <message>
        <source>Launch at login could not be changed. Check Login Items in System Settings.</source>
        <translation>No se pudo cambiar el inicio con la sesión. Compruebe las aplicaciones de inicio en los ajustes de su escritorio.</translation>
    </message>
    <message>
        <source>Apple on-device</source>
        <translation>En el equipo</translation>
    </message>
    <message>
        <source>OpenRouter</source>
        <translation>OpenRouter</translation>
    </message>
    <message>
        <source>Vesko access</source>
        <translation>Acceso de Vesko</translation>
    </message>
    <message>
        <source>My personal key</source>
        <translation>Mi clave personal</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automático</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Desactivado</translation>
    </message>
    <message>
        <source>Click once to stop. Drag to move. Right-click for the menu.</source>
        <translation>Un clic para terminar. Arrastre para mover. Clic derecho para el menú.</translation>
    </message>
    <message>
        <source>Dictionary…</source>
        <translation>Diccionario…</translation>
    </message>
    <message>
        <source>Welcome Tour…</source>
        <translation>Visita guiada…</translation>
    </message>
    <message>
        <source>About Vesko</source>
        <translation>Acerca de Vesko</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>No speech was heard. The recording is saved.</source>
        <translation>No se oyó ninguna voz. La grabación está guardada.</translation>
    </message>
    <message>
        <source>The speech engine that you chose isn't there. Choose one in Settings. Your audio is saved.</source>
        <translation>El motor de voz elegido no está. Elija uno en Ajustes. El audio está guardado.</translation>
    </message>
    <message>
        <source>Vesko is busy. Try again in a moment.</source>
        <translation>Vesko está ocupado. Inténtelo de nuevo en un momento.</translation>
    </message>
    <message>
        <source>This engine isn't there.</source>
        <translation>Este motor no está.</translation>
    </message>
    <message>
        <source>“%1”, %2 seconds after the end</source>
        <translation>«%1», %2 segundos después del final</translation>
    </message>
    <message>
        <source>Loading %1: %2 %</source>
        <translation>Cargando %1: %2 %</translation>
    </message>
    <message>
        <source>The model %1 is there.</source>
        <translation>El modelo %1 ya está.</translation>
    </message>
    <message>
        <source>A program of your own</source>
        <translation>Un programa propio</translation>
    </message>
    <message>
        <source>Any program that prints the words of a WAV file.</source>
        <translation>Cualquier programa que escriba las palabras de un archivo WAV.</translation>
    </message>
    <message>
        <source>A server of your own</source>
        <translation>Un servidor propio</translation>
    </message>
    <message>
        <source>Any server with OpenAI's way to transcribe. The sound leaves this computer unless the server runs on it.</source>
        <translation>Cualquier servidor que transcriba como el de OpenAI. El sonido sale de este equipo si el servidor no está en él.</translation>
    </message>
    <message>
        <source>finds out the language</source>
        <translation>detecta el idioma</translation>
    </message>
    <message>
        <source>lower case, no punctuation</source>
        <translation>minúsculas, sin puntuación</translation>
    </message>
    <message>
        <source>Name a program and its arguments, with {wav} where the sound's file belongs. {language} and {model} stand for the language and the model.</source>
        <translation>Indique un programa y sus argumentos, con {wav} donde va el archivo de sonido. {language} y {model} son el idioma y el modelo.</translation>
    </message>
    <message>
        <source>Enter an address that begins with https://. Plain http:// is for servers on this computer.</source>
        <translation>Escriba una dirección que empiece por https://. http:// es solo para servidores de este equipo.</translation>
    </message>
    <message>
        <source>The chosen engine isn't there. Until you choose another, recordings are only saved.</source>
        <translation>El motor elegido no está. Mientras no elija otro, las grabaciones solo se guardan.</translation>
    </message>
    <message>
        <source>For other languages, punctuation and far fewer wrong words, install whisper.cpp (its program whisper-cli is found by itself) and get a model below.</source>
        <translation>Para otros idiomas, puntuación y muchas menos palabras erróneas, instale whisper.cpp (su programa whisper-cli se encuentra solo) y obtenga abajo un modelo.</translation>
    </message>
    <message>
        <source>Speech on this computer</source>
        <translation>Voz en este equipo</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>En uso</translation>
    </message>
    <message>
        <source>Try</source>
        <translation>Probar</translation>
    </message>
    <message>
        <source>Done speaking</source>
        <translation>Listo</translation>
    </message>
    <message>
        <source>Speak a sentence now. Nothing of it is stored.</source>
        <translation>Diga ahora una frase. No se guarda nada.</translation>
    </message>
    <message>
        <source>Looking for engines…</source>
        <translation>Buscando motores…</translation>
    </message>
    <message>
        <source>Server address</source>
        <translation>Dirección del servidor</translation>
    </message>
    <message>
        <source>Model of the server</source>
        <translation>Modelo del servidor</translation>
    </message>
    <message>
        <source>Key of the server</source>
        <translation>Clave del servidor</translation>
    </message>
    <message>
        <source>Save the key of the server</source>
        <translation>Guardar la clave del servidor</translation>
    </message>
    <message>
        <source>Get a model</source>
        <translation>Obtener un modelo</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Cargar</translation>
    </message>
    <message>
        <source>Tell the engine the terms of your dictionary</source>
        <translation>Indicar al motor los términos del diccionario</translation>
    </message>
    <message>
        <source>Pause loading</source>
        <translation>Pausar la carga</translation>
    </message>
    <message numerus="yes">
        <source>%1 languages</source>
        <translation>
            <numerusform>%1 idioma</numerusform>
            <numerusform>%1 idiomas</numerusform>
        </translation>
    </message>
    <message>
        <source>No password store (keyring) runs here, so Vesko has no place for keys. Start one, such as GNOME Keyring, KWallet or KeePassXC, and try again.</source>
        <translation>Aquí no hay ningún almacén de contraseñas (llavero), así que Vesko no tiene dónde guardar claves. Inicie uno, como GNOME Keyring, KWallet o KeePassXC, e inténtelo de nuevo.</translation>
    </message>
    <message>
        <source>Audio is sent to OpenRouter and its selected transcription provider. Provider retention policies apply. Your personal key's balance is used.</source>
        <translation>El audio se envía a OpenRouter y al proveedor de transcripción que elija. Se aplican las políticas de retención del proveedor. Se usa el saldo de su clave personal.</translation>
    </message>
    <message>
        <source>The library could not be opened</source>
        <translation>No se pudo abrir la biblioteca</translation>
    </message>
    <message>
        <source>Vesko found no program for your desktop's settings. Please open them yourself.</source>
        <translation>Vesko no encontró ningún programa de ajustes del escritorio. Ábralos usted.</translation>
    </message>
    <message>
        <source>A speech model for %1 is installed.</source>
        <translation>Hay instalado un modelo de voz para %1.</translation>
    </message>
    <message>
        <source>No speech model for %1 is installed. Install the package pocketsphinx-en-us, or choose another engine or OpenRouter in Settings.</source>
        <translation>No hay instalado ningún modelo de voz para %1. Instale el paquete pocketsphinx-en-us, o elija otro motor u OpenRouter en Ajustes.</translation>
    </message>
    <message>
        <source>No speech model for %1 is installed. Choose another engine or OpenRouter in Settings.</source>
        <translation>No hay instalado ningún modelo de voz para %1. Elija otro motor u OpenRouter en Ajustes.</translation>
    </message>
    <message>
        <source>No speech model</source>
        <translation>Sin modelo de voz</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Detalles</translation>
    </message>
    <message>
        <source>Accessibility is on. Vesko can paste into the field you started in.</source>
        <translation>La accesibilidad está activada. Vesko puede pegar en el campo en el que empezó.</translation>
    </message>
    <message>
        <source>Vesko notices the dictation key.</source>
        <translation>Vesko detecta la tecla de dictado.</translation>
    </message>
    <message>
        <source>Moved to Trash</source>
        <translation>Movida a la papelera</translation>
    </message>
    <message>
        <source>Removed “%1”</source>
        <translation>Se quitó «%1»</translation>
    </message>
    <message>
        <source>Not in this text</source>
        <translation>No está en este texto</translation>
    </message>
    <message>
        <source>Matches in this text: %1</source>
        <translation>Coincidencias en este texto: %1</translation>
    </message>
    <message>
        <source>Match %1 of %2</source>
        <translation>Coincidencia %1 de %2</translation>
    </message>
    <message>
        <source>Previous match</source>
        <translation>Coincidencia anterior</translation>
    </message>
    <message>
        <source>Next match</source>
        <translation>Coincidencia siguiente</translation>
    </message>
    <message>
        <source>Version %1, build %2</source>
        <translation>Versión %1, compilación %2</translation>
    </message>
    <message>
        <source>MIT License</source>
        <translation>Licencia MIT</translation>
    </message>
    <message>
        <source>%1 to dictate</source>
        <translation>%1 para dictar</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Espacio</translation>
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
        <translation>Mayús</translation>
    </message>
    <message>
        <source>Press %1 and speak</source>
        <translation>Pulse %1 y hable</translation>
    </message>
    <message>
        <source>Press again to finish. Vesko pastes into the field you started in.</source>
        <translation>Vuelva a pulsar para terminar. Vesko pega en el campo en el que empezó.</translation>
    </message>
    <message>
        <source>Or press %1</source>
        <translation>O pulse %1</translation>
    </message>
    <message>
        <source>Give the clipboard back after a paste</source>
        <translation>Devolver el portapapeles tras pegar</translation>
    </message>
    <message>
        <source>What you had copied before, up to 16 MB, is there again once the field shows the dictated text. Where that can&apos;t be seen, the dictated text stays on the clipboard.</source>
        <translation>Lo que había copiado antes, hasta 16 MB, vuelve en cuanto el campo muestra el texto dictado. Donde no se puede ver, el texto dictado queda en el portapapeles.</translation>
    </message>
    <message>
        <source>Pasted into the original field. The clipboard holds what it held before.</source>
        <translation>Pegado en el campo original. El portapapeles contiene lo que contenía antes.</translation>
    </message>
    <message>
        <source>%1 is unavailable: another program has it. Use the floating button, or choose another shortcut in the settings.</source>
        <translation>%1 no está disponible: lo tiene otro programa. Use el botón flotante o elija otro atajo en los ajustes.</translation>
    </message>
    <message>
        <source>Global shortcut: %1</source>
        <translation>Atajo global: %1</translation>
    </message>
    <message>
        <source>Press the new shortcut…</source>
        <translation>Pulse el nuevo atajo…</translation>
    </message>
    <message>
        <source>%1 can&apos;t be had: another program has it. Choose another shortcut.</source>
        <translation>%1 no está libre: lo tiene otro programa. Elija otro atajo.</translation>
    </message>
    <message>
        <source>%1 is what text is pasted with, by Vesko too. Choose another shortcut.</source>
        <translation>Con %1 se pega texto, también Vesko. Elija otro atajo.</translation>
    </message>
    <message>
        <source>%1 is typed with. A shortcut needs Ctrl, Alt or Super.</source>
        <translation>%1 se usa para escribir. Un atajo necesita Ctrl, Alt o Super.</translation>
    </message>
    <message>
        <source>No shortcut can be made with this key.</source>
        <translation>Con esta tecla no se puede formar un atajo.</translation>
    </message>
    <message>
        <source>Pastes into the field you started in. Vesko switches it on, and it stays on.</source>
        <translation>Pega en el campo en el que empezó. Vesko la activa y queda activada.</translation>
    </message>
    <message>
        <source>This desktop has no accessibility bus, so nothing was turned on. Install the package at-spi2-core, and start the session anew.</source>
        <translation>Este escritorio no tiene bus de accesibilidad, así que no se ha activado nada. Instale el paquete at-spi2-core y vuelva a iniciar la sesión.</translation>
    </message>
    <message>
        <source>Click once to record. Drag to move. Right-click for the menu.</source>
        <translation>Un clic para grabar. Arrastre para mover. Clic derecho para el menú.</translation>
    </message>
    <message>
        <source>Click once to record. Drag to move. Right-click for the menu. Shortcut: %1</source>
        <translation>Un clic para grabar. Arrastre para mover. Clic derecho para el menú. Atajo: %1</translation>
    </message>
    <message>
        <source>Program and arguments</source>
        <translation>Programa y argumentos</translation>
    </message>
    <message>
        <source>Model of the program</source>
        <translation>Modelo del programa</translation>
    </message>
    <message>
        <source>Cleaning up</source>
        <translation>Corrigiendo</translation>
    </message>
    <message>
        <source>Translating</source>
        <translation>Traduciendo</translation>
    </message>
    <message>
        <source>Open note</source>
        <translation>Abrir nota</translation>
    </message>
    <message>
        <source>To the clipboard</source>
        <translation>Al portapapeles</translation>
    </message>
    <message>
        <source>Into %1</source>
        <translation>En %1</translation>
    </message>
    <message>
        <source>Into the field where you began</source>
        <translation>En el campo en el que empezó</translation>
    </message>
    <message>
        <source>Export library…</source>
        <translation>Exportar la biblioteca…</translation>
    </message>
    <message>
        <source>Import library…</source>
        <translation>Importar una biblioteca…</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importar</translation>
    </message>
    <message>
        <source>Exporting the library…</source>
        <translation>Exportando la biblioteca…</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>Importando…</translation>
    </message>
    <message>
        <source>Library exported</source>
        <translation>Biblioteca exportada</translation>
    </message>
    <message>
        <source>All notes of this archive are here already.</source>
        <translation>Todas las notas de este archivo ya están aquí.</translation>
    </message>
    <message>
        <source>Export dictionary…</source>
        <translation>Exportar el diccionario…</translation>
    </message>
    <message>
        <source>Import dictionary…</source>
        <translation>Importar un diccionario…</translation>
    </message>
    <message>
        <source>Dictionary exported</source>
        <translation>Diccionario exportado</translation>
    </message>
    <message>
        <source>This file is no table of terms.</source>
        <translation>Este archivo no es una tabla de términos.</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nunca</translation>
    </message>
    <message>
        <source>After 30 days</source>
        <translation>A los 30 días</translation>
    </message>
    <message>
        <source>After 90 days</source>
        <translation>A los 90 días</translation>
    </message>
    <message>
        <source>After a year</source>
        <translation>Al cabo de un año</translation>
    </message>
    <message>
        <source>Cancelled. Nothing was changed.</source>
        <translation>Cancelado. No se ha cambiado nada.</translation>
    </message>
    <message>
        <source>This archive was made by a newer Vesko. Update the app before importing it.</source>
        <translation>Este archivo es de una versión más reciente de Vesko. Actualice la aplicación antes de importarlo.</translation>
    </message>
    <message>
        <source>This archive unpacks to more than Vesko takes in. Nothing was changed.</source>
        <translation>Este archivo descomprimido es mayor de lo que Vesko admite. No se ha cambiado nada.</translation>
    </message>
    <message>
        <source>This file is no library that Vesko has exported, or it is damaged. Nothing was changed.</source>
        <translation>Este archivo no es una biblioteca exportada por Vesko, o está dañado. No se ha cambiado nada.</translation>
    </message>
    <message>
        <source>There is not enough room on the disk. Your saved files were preserved.</source>
        <translation>No hay espacio suficiente en el disco. Sus archivos guardados se han conservado.</translation>
    </message>
    <message>
        <source>Audio removed to save room: %1</source>
        <translation>Audio eliminado para ahorrar espacio: %1</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Importar…</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Exportar…</translation>
    </message>
    <message>
        <source>Empty Trash…</source>
        <translation>Vaciar la papelera…</translation>
    </message>
    <message>
        <source>Delete all notes in the Trash permanently?</source>
        <translation>¿Eliminar definitivamente todas las notas de la papelera?</translation>
    </message>
    <message>
        <source>Their recordings go with them. This cannot be undone.</source>
        <translation>Sus grabaciones también se eliminan. Esto no se puede deshacer.</translation>
    </message>
    <message>
        <source>Empty Trash</source>
        <translation>Vaciar la papelera</translation>
    </message>
    <message>
        <source>Your recordings take %1.</source>
        <translation>Sus grabaciones ocupan %1.</translation>
    </message>
    <message>
        <source>Remove recordings</source>
        <translation>Eliminar grabaciones</translation>
    </message>
    <message>
        <source>Only the audio goes: texts and their history stay, and so does each recording without a text.</source>
        <translation>Solo se elimina el audio: los textos y su historial se conservan, igual que toda grabación sin texto.</translation>
    </message>
    <message>
        <source>Remove the audio of old recordings?</source>
        <translation>¿Eliminar el audio de las grabaciones antiguas?</translation>
    </message>
    <message>
        <source>What is older goes now, and the rest as it grows old. This cannot be undone.</source>
        <translation>Lo más antiguo se elimina ahora, y el resto cuando alcance esa edad. Esto no se puede deshacer.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Delete old notes in the Trash?</source>
        <translation>¿Eliminar las notas antiguas de la papelera?</translation>
    </message>
    <message>
        <source>Notes imported: %1</source>
        <translation>Notas importadas: %1</translation>
    </message>
    <message>
        <source>Terms imported: %1</source>
        <translation>Términos importados: %1</translation>
    </message>
    <message>
        <source>Not pasted</source>
        <translation>No se ha pegado</translation>
    </message>
    <message>
        <source>Not transcribed</source>
        <translation>No se ha transcrito</translation>
    </message>
    <message>
        <source>Copy again</source>
        <translation>Copiar de nuevo</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Show the text in notifications</source>
        <translation>Mostrar el texto en las notificaciones</translation>
    </message>
    <message>
        <source>Original saved. Waiting for the key from your password store (keyring), which may be asking you to unlock it.</source>
        <translation>Original guardado. Esperando la clave de su almacén de contraseñas (llavero), que quizá le pida desbloquearlo.</translation>
    </message>
    <message>
        <source>Diagnose…</source>
        <translation>Diagnóstico…</translation>
    </message>
    <message>
        <source>Diagnosis</source>
        <translation>Diagnóstico</translation>
    </message>
    <message>
        <source>What works on this computer and what doesn&apos;t. Nothing that you said or wrote is in it, and no key: it can go into a report as it is.</source>
        <translation>Qué funciona en este equipo y qué no. No contiene nada de lo que ha dicho o escrito ni ninguna clave: puede ir tal cual en un informe.</translation>
    </message>
    <message>
        <source>Looking at this computer…</source>
        <translation>Examinando este equipo…</translation>
    </message>
    <message>
        <source>This computer could not be looked at.</source>
        <translation>No se ha podido examinar este equipo.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Buscar</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Sin resultados</translation>
    </message>
    <message>
        <source>Uses on-device speech only when this language is supported. Automatic lets the engine find out the language. If a model is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>Usa la voz en el equipo solo si admite este idioma. «Automático» deja que el motor averigüe el idioma. Si falta un modelo, el audio queda guardado y puede elegir OpenRouter.</translation>
    </message>
    <message>
        <source>Automatic leaves it to your program or server to find out the language. If it is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>«Automático» deja que su programa o servidor averigüe el idioma. Si no está disponible, el audio queda guardado y puede elegir OpenRouter.</translation>
    </message>
    <message numerus="yes">
        <source>%1 notes selected</source>
        <translation>
            <numerusform>%1 nota seleccionada</numerusform>
            <numerusform>%1 notas seleccionadas</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %1 notes to Trash?</source>
        <translation>
            <numerusform>¿Mover %1 nota a la papelera?</numerusform>
            <numerusform>¿Mover %1 notas a la papelera?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %1 notes and their recordings permanently?</source>
        <translation>
            <numerusform>¿Eliminar definitivamente %1 nota y sus grabaciones?</numerusform>
            <numerusform>¿Eliminar definitivamente %1 notas y sus grabaciones?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 notes moved to Trash</source>
        <translation>
            <numerusform>%1 nota movida a la papelera</numerusform>
            <numerusform>%1 notas movidas a la papelera</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 notes moved to another project</source>
        <translation>
            <numerusform>%1 nota movida a otro proyecto</numerusform>
            <numerusform>%1 notas movidas a otro proyecto</numerusform>
        </translation>
    </message>
    <message>
        <source>Note moved to another project</source>
        <translation>Nota movida a otro proyecto</translation>
    </message>
    <message>
        <source>Move to project</source>
        <translation>Mover a un proyecto</translation>
    </message>
    <message>
        <source>Restore notes</source>
        <translation>Restaurar notas</translation>
    </message>
    <message>
        <source>You can restore the notes and their recordings from Trash.</source>
        <translation>Puede restaurar las notas y sus grabaciones desde la papelera.</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Carpeta</translation>
    </message>
    <message>
        <source>Cancel transcription</source>
        <translation>Cancelar la transcripción</translation>
    </message>
    <message>
        <source>Cancelled. The text as it was heard is in its note.</source>
        <translation>Cancelado. El texto, tal como se oyó, está en su nota.</translation>
    </message>
    <message>
        <source>Transcription cancelled. The recording is saved.</source>
        <translation>Transcripción cancelada. La grabación está guardada.</translation>
    </message>
    <message>
        <source>This note is in the Trash</source>
        <translation>Esta nota está en la papelera</translation>
    </message>
    <message>
        <source>Playback speed</source>
        <translation>Velocidad de reproducción</translation>
    </message>
    <message>
        <source>Position in the recording</source>
        <translation>Posición en la grabación</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Mostrar en la carpeta</translation>
    </message>
    <message>
        <source>Vesko is running already, on the display %1, and shows its window there.</source>
        <translation>Vesko ya se está ejecutando, en la pantalla %1, y muestra allí su ventana.</translation>
    </message>
    <message>
        <source>Vesko is running already, but does not answer</source>
        <translation>Vesko ya se está ejecutando, pero no responde</translation>
    </message>
    <message>
        <source>Vesko is running already, in another session, but does not answer</source>
        <translation>Vesko ya se está ejecutando, en otra sesión, pero no responde</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>No setting has these words</source>
        <translation>Ningún ajuste tiene estas palabras</translation>
    </message>
    <message>
        <source>Translation and cleanup</source>
        <translation>Traducción y limpieza</translation>
    </message>
    <message>
        <source>Search settings</source>
        <translation>Buscar en los ajustes</translation>
    </message>
    <message>
        <source>Notes found: %1</source>
        <translation>Notas encontradas: %1</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>Añadir %1</translation>
    </message>
    <message>
        <source>The desktop's settings did not take %1. Choose keys there.</source>
        <translation>Los ajustes del escritorio no aceptaron %1. Elija las teclas allí.</translation>
    </message>
    <message>
        <source>%1 gives programs no shortcuts of their own, but Vesko can add one to its settings: see “Capture and insertion” in the settings of Vesko.</source>
        <translation>%1 no da a los programas atajos propios, pero Vesko puede añadir uno a sus ajustes: véase «Captura e inserción» en los ajustes de Vesko.</translation>
    </message>
    <message>
        <source>When you dictate into another program, %1 asks whether Vesko may control the keyboard: once, or each time if it does not remember your answer. Allow it in the window that opens. Vesko presses the keys that paste, and no others.</source>
        <translation>Cuando dicta en otro programa, %1 pregunta si Vesko puede controlar el teclado: una vez, o cada vez si no recuerda la respuesta. Permítalo en la ventana que se abre. Vesko pulsa las teclas para pegar y ninguna otra.</translation>
    </message>
    <message>
        <source>Copied. The desktop was still asking you whether Vesko may press the keys that paste. Paste it with Command V.</source>
        <translation>Copiado. El escritorio aún le preguntaba si Vesko puede pulsar las teclas para pegar. Pegue el texto con Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Vesko was not allowed to press the keys that paste. Paste it with Command V.</source>
        <translation>Copiado. No se permitió a Vesko pulsar las teclas para pegar. Pegue el texto con Ctrl+V.</translation>
    </message>
</context>
</TS>
