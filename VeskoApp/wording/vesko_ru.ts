<?xml version="1.0" encoding="utf-8"?>
<!-- Russian. Nobody whose first language it is has read this catalogue yet. -->
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
<context>
    <name>Vesko</name>
    <message>
        <source>Code</source>
        <translation>Код</translation>
    </message>
    <message>
        <source>Sign-in code</source>
        <translation>Код для входа</translation>
    </message>
    <message>
        <source>Use another email</source>
        <translation>Указать другой адрес</translation>
    </message>
    <message>
        <source>Continue with Google</source>
        <translation>Продолжить через Google</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>or</source>
        <translation>или</translation>
    </message>
    <message>
        <source>Email address</source>
        <translation>Адрес электронной почты</translation>
    </message>
    <message>
        <source>Send code</source>
        <translation>Отправить код</translation>
    </message>
    <message>
        <source>Release Fn to finish</source>
        <translation>Отпустите клавишу, чтобы закончить</translation>
    </message>
    <message>
        <source>Release Fn to finish recording</source>
        <translation>Отпустите клавишу, чтобы закончить запись</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Отменить</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Повторить</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Вырезать</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Копировать</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Вставить</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Выделить всё</translation>
    </message>
    <message>
        <source>Recognized term</source>
        <translation>Распознанный термин</translation>
    </message>
    <message>
        <source>For example: tallki</source>
        <translation>Например: tallki</translation>
    </message>
    <message>
        <source>Use instead</source>
        <translation>Заменять на</translation>
    </message>
    <message>
        <source>For example: Vesko</source>
        <translation>Например: Vesko</translation>
    </message>
    <message>
        <source>Dictionary</source>
        <translation>Словарь</translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>Изменить «%1»</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>Удалить «%1»</translation>
    </message>
    <message>
        <source>Use term</source>
        <translation>Применять термин</translation>
    </message>
    <message>
        <source>Use %1</source>
        <translation>Применять «%1»</translation>
    </message>
    <message>
        <source>Vesko Dictionary</source>
        <translation>Словарь Vesko</translation>
    </message>
    <message>
        <source>Your words, your spelling</source>
        <translation>Ваши слова, ваше написание</translation>
    </message>
    <message>
        <source>Corrections stay on this Mac. Original transcripts are kept.</source>
        <translation>Исправления остаются на этом компьютере. Исходные расшифровки сохраняются.</translation>
    </message>
    <message>
        <source>Save last corrections</source>
        <translation>Сохранить последние исправления</translation>
    </message>
    <message>
        <source>Dismiss</source>
        <translation>Скрыть</translation>
    </message>
    <message>
        <source>Search dictionary</source>
        <translation>Поиск в словаре</translation>
    </message>
    <message>
        <source>Whole terms are replaced after recognition. New unrelated wording stays a suggestion. You can edit, disable or remove any term.</source>
        <translation>Термины заменяются целиком после распознавания. Новые формулировки, не похожие на исходные, остаются предложениями. Любой термин можно изменить, отключить или удалить.</translation>
    </message>
    <message>
        <source>Which language do you speak?</source>
        <translation>На каком языке вы говорите?</translation>
    </message>
    <message>
        <source>I switch between languages</source>
        <translation>Я говорю на разных языках</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>Меню</translation>
    </message>
    <message>
        <source>Your voice, kept close</source>
        <translation>Ваш голос всегда рядом</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>Библиотека</translation>
    </message>
    <message>
        <source>All notes</source>
        <translation>Все заметки</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>Проекты</translation>
    </message>
    <message>
        <source>New project</source>
        <translation>Новый проект</translation>
    </message>
    <message>
        <source>Rename project</source>
        <translation>Переименовать проект</translation>
    </message>
    <message>
        <source>Trash</source>
        <translation>Корзина</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Сохранить</translation>
    </message>
    <message>
        <source>Project name</source>
        <translation>Название проекта</translation>
    </message>
    <message>
        <source>Note title</source>
        <translation>Заголовок заметки</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Проект</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Без проекта</translation>
    </message>
    <message>
        <source>Add voice</source>
        <translation>Добавить запись</translation>
    </message>
    <message>
        <source>Saved on this Mac</source>
        <translation>Сохранено на этом компьютере</translation>
    </message>
    <message>
        <source>Note copied</source>
        <translation>Заметка скопирована</translation>
    </message>
    <message>
        <source>Copy note</source>
        <translation>Копировать заметку</translation>
    </message>
    <message>
        <source>Copy note (⌘C)</source>
        <translation>Копировать заметку (Ctrl+C)</translation>
    </message>
    <message>
        <source>Note actions</source>
        <translation>Действия с заметкой</translation>
    </message>
    <message>
        <source>Note text</source>
        <translation>Текст заметки</translation>
    </message>
    <message>
        <source>Original recordings</source>
        <translation>Исходные записи</translation>
    </message>
    <message>
        <source>Copy text</source>
        <translation>Копировать текст</translation>
    </message>
    <message>
        <source>Export Markdown…</source>
        <translation>Экспорт в Markdown…</translation>
    </message>
    <message>
        <source>Restore note</source>
        <translation>Восстановить заметку</translation>
    </message>
    <message>
        <source>Move to Trash…</source>
        <translation>Переместить в корзину…</translation>
    </message>
    <message>
        <source>Delete permanently…</source>
        <translation>Удалить навсегда…</translation>
    </message>
    <message>
        <source>Move this note to Trash?</source>
        <translation>Переместить эту заметку в корзину?</translation>
    </message>
    <message>
        <source>You can restore the note and its recordings from Trash.</source>
        <translation>Заметку и её записи можно будет восстановить из корзины.</translation>
    </message>
    <message>
        <source>Move to Trash</source>
        <translation>Переместить в корзину</translation>
    </message>
    <message>
        <source>Delete this note and its recordings permanently?</source>
        <translation>Удалить эту заметку и её записи навсегда?</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>Это действие нельзя отменить.</translation>
    </message>
    <message>
        <source>Delete permanently</source>
        <translation>Удалить навсегда</translation>
    </message>
    <message>
        <source>The file that is there will be replaced.</source>
        <translation>Существующий файл будет заменён.</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Файл</translation>
    </message>
    <message>
        <source>Search notes and transcripts</source>
        <translation>Поиск в заметках и расшифровках</translation>
    </message>
    <message>
        <source>Play or stop original recording</source>
        <translation>Прослушать или остановить исходную запись</translation>
    </message>
    <message>
        <source>Original transcript</source>
        <translation>Исходная расшифровка</translation>
    </message>
    <message>
        <source>Edited text</source>
        <translation>Исправленный текст</translation>
    </message>
    <message>
        <source>Copy edited text</source>
        <translation>Копировать исправленный текст</translation>
    </message>
    <message>
        <source>Transcribe this original again?</source>
        <translation>Расшифровать эту запись ещё раз?</translation>
    </message>
    <message>
        <source>Uses your current model settings. OpenRouter requests use your credit and can incur another charge. The result stays in this note and is never pasted automatically.</source>
        <translation>Используются текущие настройки модели. Запросы к OpenRouter расходуют ваши средства, и за повтор может взиматься новая плата. Результат останется в этой заметке и не будет вставлен автоматически.</translation>
    </message>
    <message>
        <source>Transcribe</source>
        <translation>Расшифровать</translation>
    </message>
    <message>
        <source>New note</source>
        <translation>Новая заметка</translation>
    </message>
    <message>
        <source>Create a text note</source>
        <translation>Создать текстовую заметку</translation>
    </message>
    <message>
        <source>Records into the library without pasting into another app</source>
        <translation>Запись сохраняется в библиотеке и не вставляется в другую программу</translation>
    </message>
    <message>
        <source>Dismiss message</source>
        <translation>Скрыть сообщение</translation>
    </message>
    <message>
        <source>Your thoughts, ready to use</source>
        <translation>Ваши мысли всегда под рукой</translation>
    </message>
    <message>
        <source>Select a note to edit its text, replay the original, or add more by voice.</source>
        <translation>Выберите заметку, чтобы изменить её текст, прослушать оригинал или дополнить её голосом.</translation>
    </message>
    <message>
        <source>How to dictate</source>
        <translation>Как диктовать</translation>
    </message>
    <message>
        <source>Hold Fn and speak</source>
        <translation>Удерживайте клавишу и говорите</translation>
    </message>
    <message>
        <source>Release to finish. Vesko pastes into the field you started in.</source>
        <translation>Отпустите, чтобы закончить. Vesko вставит текст в поле, с которого вы начали.</translation>
    </message>
    <message>
        <source>Tap Fn for longer thoughts</source>
        <translation>Коротко нажмите клавишу для долгих мыслей</translation>
    </message>
    <message>
        <source>Recording keeps going hands-free. Tap Fn again to finish.</source>
        <translation>Запись идёт, а руки свободны. Нажмите клавишу ещё раз, чтобы закончить.</translation>
    </message>
    <message>
        <source>Works the same way when Fn is busy.</source>
        <translation>Работает так же, когда клавиша занята.</translation>
    </message>
    <message>
        <source>Click the floating circle</source>
        <translation>Нажмите на плавающий круг</translation>
    </message>
    <message>
        <source>It sits in the corner and shows when Vesko is listening.</source>
        <translation>Он виден в углу экрана и показывает, когда Vesko слушает.</translation>
    </message>
    <message>
        <source>Keep notes in the library</source>
        <translation>Храните заметки в библиотеке</translation>
    </message>
    <message>
        <source>Record a voice note, edit the text, and group notes by project.</source>
        <translation>Записывайте голосовые заметки, правьте текст и собирайте заметки в проекты.</translation>
    </message>
    <message>
        <source>Speak once. Keep the thought. Use the words.</source>
        <translation>Скажите один раз. Сохраните мысль. Используйте слова.</translation>
    </message>
    <message>
        <source>Faster than typing</source>
        <translation>Быстрее, чем печатать</translation>
    </message>
    <message>
        <source>Say it in any app. Vesko writes it where your cursor is.</source>
        <translation>Говорите в любой программе. Vesko пишет там, где стоит курсор.</translation>
    </message>
    <message>
        <source>Nothing gets lost</source>
        <translation>Ничего не теряется</translation>
    </message>
    <message>
        <source>Every original recording stays on this Mac. Retry any transcription.</source>
        <translation>Каждая исходная запись остаётся на этом компьютере. Любую расшифровку можно повторить.</translation>
    </message>
    <message>
        <source>Yours to edit</source>
        <translation>Всё можно изменить</translation>
    </message>
    <message>
        <source>Notes, projects and a personal dictionary that learns your words.</source>
        <translation>Заметки, проекты и личный словарь, который запоминает ваши слова.</translation>
    </message>
    <message>
        <source>Welcome to Vesko</source>
        <translation>Добро пожаловать в Vesko</translation>
    </message>
    <message>
        <source>Allow access</source>
        <translation>Разрешите доступ</translation>
    </message>
    <message>
        <source>macOS asks once for each. You can change them later in Settings.</source>
        <translation>Это нужно Vesko для работы. Позже всё это можно найти в настройках.</translation>
    </message>
    <message>
        <source>You are signed in</source>
        <translation>Вход выполнен</translation>
    </message>
    <message>
        <source>Create your Vesko account</source>
        <translation>Создайте учётную запись Vesko</translation>
    </message>
    <message>
        <source>Notes and recordings stay on this Mac.</source>
        <translation>Заметки и записи остаются на этом компьютере.</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Назад</translation>
    </message>
    <message>
        <source>Not now</source>
        <translation>Не сейчас</translation>
    </message>
    <message>
        <source>Stop dictation</source>
        <translation>Остановить диктовку</translation>
    </message>
    <message>
        <source>Start dictation</source>
        <translation>Начать диктовку</translation>
    </message>
    <message>
        <source>Open Vesko</source>
        <translation>Открыть Vesko</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Настройки…</translation>
    </message>
    <message>
        <source>Quit Vesko</source>
        <translation>Выйти из Vesko</translation>
    </message>
    <message>
        <source>Account</source>
        <translation>Учётная запись</translation>
    </message>
    <message>
        <source>Signed in as</source>
        <translation>Вы вошли как</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>Способ входа</translation>
    </message>
    <message>
        <source>Sign out</source>
        <translation>Выйти</translation>
    </message>
    <message>
        <source>Delete account…</source>
        <translation>Удалить учётную запись…</translation>
    </message>
    <message>
        <source>Delete your Vesko account?</source>
        <translation>Удалить вашу учётную запись Vesko?</translation>
    </message>
    <message>
        <source>Your account is removed from Vesko's service. Notes and recordings on this Mac are kept.</source>
        <translation>Учётная запись будет удалена из сервиса Vesko. Заметки и записи на этом компьютере сохранятся.</translation>
    </message>
    <message>
        <source>Delete account</source>
        <translation>Удалить учётную запись</translation>
    </message>
    <message>
        <source>Capture and insertion</source>
        <translation>Запись и вставка</translation>
    </message>
    <message>
        <source>Global shortcut</source>
        <translation>Глобальное сочетание клавиш</translation>
    </message>
    <message>
        <source>Also use Fn / Globe to start and stop</source>
        <translation>Начинать и останавливать запись также одной клавишей</translation>
    </message>
    <message>
        <source>Dictation key</source>
        <translation>Клавиша диктовки</translation>
    </message>
    <message>
        <source>Fn starts recording when pressed. Tap to keep recording, or hold for 0.35 seconds and release to finish. A second tap stops a latched recording. Fn combinations do not send audio for transcription. Set Fn/Globe to Do Nothing in System Settings &gt; Keyboard if macOS opens its own dictation or emoji picker.</source>
        <translation>Запись начинается при нажатии клавиши. Нажмите её коротко, чтобы запись продолжалась, или удерживайте 0,35 секунды и отпустите, чтобы закончить. Второе нажатие останавливает продолжающуюся запись. При сочетании с другими клавишами звук не отправляется на расшифровку. Если рабочий стол сам использует эту клавишу, отключите это в его настройках клавиатуры или выберите другую клавишу.</translation>
    </message>
    <message>
        <source>Show floating capture button</source>
        <translation>Показывать плавающую кнопку записи</translation>
    </message>
    <message>
        <source>Click it to record. Drag it to move it; a drag never starts a recording. Right-click it for the Vesko menu.</source>
        <translation>Нажмите на неё, чтобы начать запись. Перетащите её, чтобы переместить: запись от этого не начнётся. Щёлкните по ней правой кнопкой, чтобы открыть меню Vesko.</translation>
    </message>
    <message>
        <source>The Vesko icon is hidden behind the camera area of the menu bar. Hold Command and drag menu bar icons to make room, or right-click the floating button for the same menu.</source>
        <translation>Этот рабочий стол не показывает значки состояния. Щёлкните правой кнопкой по плавающей кнопке: откроется то же меню.</translation>
    </message>
    <message>
        <source>Play sounds when recording starts and stops</source>
        <translation>Звуковой сигнал в начале и в конце записи</translation>
    </message>
    <message>
        <source>Preview start sound</source>
        <translation>Прослушать сигнал начала</translation>
    </message>
    <message>
        <source>Preview stop sound</source>
        <translation>Прослушать сигнал окончания</translation>
    </message>
    <message>
        <source>Paste dictation into the original field</source>
        <translation>Вставлять диктовку в исходное поле</translation>
    </message>
    <message>
        <source>Text is copied after dictation. Automatic paste needs Accessibility access and an unchanged focused field. Secure or unsupported fields use copy only. Vesko never presses Return.</source>
        <translation>После диктовки текст копируется. Для автоматической вставки нужны специальные возможности и прежнее активное поле. Для защищённых и неподдерживаемых полей текст только копируется. Vesko никогда не нажимает Enter.</translation>
    </message>
    <message>
        <source>OpenRouter access</source>
        <translation>Доступ к OpenRouter</translation>
    </message>
    <message>
        <source>Use</source>
        <translation>Использовать</translation>
    </message>
    <message>
        <source>Vesko access is ready</source>
        <translation>Доступ через Vesko готов</translation>
    </message>
    <message>
        <source>Key status</source>
        <translation>Состояние ключа</translation>
    </message>
    <message>
        <source>Your personal API key</source>
        <translation>Ваш личный ключ API</translation>
    </message>
    <message>
        <source>Save key</source>
        <translation>Сохранить ключ</translation>
    </message>
    <message>
        <source>Remove key</source>
        <translation>Удалить ключ</translation>
    </message>
    <message>
        <source>OpenRouter account</source>
        <translation>Учётная запись OpenRouter</translation>
    </message>
    <message>
        <source>Your key belongs to this macOS account. Vesko does not share it with other users or top up your balance.</source>
        <translation>Ключ принадлежит вашей учётной записи на этом компьютере. Vesko не передаёт его другим пользователям и не пополняет ваш баланс.</translation>
    </message>
    <message>
        <source>Speech recognition</source>
        <translation>Распознавание речи</translation>
    </message>
    <message>
        <source>Transcribe with</source>
        <translation>Способ расшифровки</translation>
    </message>
    <message>
        <source>Spoken language</source>
        <translation>Язык речи</translation>
    </message>
    <message>
        <source>Uses on-device speech only when this language is supported. Automatic uses your Mac's language. If a model is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>Распознавание на компьютере работает, только если этот язык поддерживается. В режиме «Автоматически» используется язык компьютера. Если модель недоступна, звук остаётся сохранённым и можно выбрать OpenRouter.</translation>
    </message>
    <message>
        <source>Speech model</source>
        <translation>Модель распознавания</translation>
    </message>
    <message>
        <source>Speech model ID</source>
        <translation>ID модели распознавания</translation>
    </message>
    <message>
        <source>Audio is sent to OpenRouter and its selected transcription provider. Provider retention policies apply. Vesko access or your personal key determines which balance is used.</source>
        <translation>Звук отправляется в OpenRouter и выбранному там сервису расшифровки. Действуют правила хранения данных этого сервиса. С какого баланса идёт оплата, зависит от того, используется ли доступ через Vesko или личный ключ.</translation>
    </message>
    <message>
        <source>Recordings stop after 5 minutes in this version. Original audio stays on this Mac.</source>
        <translation>В этой версии запись останавливается через 5 минут. Исходный звук остаётся на этом компьютере.</translation>
    </message>
    <message>
        <source>Availability and storage</source>
        <translation>Запуск и хранение</translation>
    </message>
    <message>
        <source>Launch at login</source>
        <translation>Запускать при входе в систему</translation>
    </message>
    <message>
        <source>macOS approval is needed in Login Items.</source>
        <translation>Рабочий стол должен разрешить автозапуск Vesko.</translation>
    </message>
    <message>
        <source>Open Login Items</source>
        <translation>Открыть настройки автозапуска</translation>
    </message>
    <message>
        <source>Open data folder</source>
        <translation>Открыть папку данных</translation>
    </message>
    <message>
        <source>Recordings and notes are stored locally. Export individual notes as Markdown from the note menu. Cloud sync is not enabled.</source>
        <translation>Записи и заметки хранятся на этом компьютере. Отдельные заметки можно экспортировать в Markdown из меню заметки. Облачная синхронизация не включена.</translation>
    </message>
    <message>
        <source>Translation</source>
        <translation>Перевод</translation>
    </message>
    <message>
        <source>Translate dictation into</source>
        <translation>Переводить диктовку на язык</translation>
    </message>
    <message>
        <source>Text model ID</source>
        <translation>ID текстовой модели</translation>
    </message>
    <message>
        <source>Off by default. When on, each transcript is sent to the text model below for a separate paid request. The original transcript stays saved with the recording.</source>
        <translation>По умолчанию выключен. Если перевод включён, каждая расшифровка отправляется в указанную ниже текстовую модель отдельным платным запросом. Исходная расшифровка хранится вместе с записью.</translation>
    </message>
    <message>
        <source>Optional AI cleanup</source>
        <translation>ИИ-правка по желанию</translation>
    </message>
    <message>
        <source>Clean up punctuation and repeated words</source>
        <translation>Исправлять пунктуацию и повторы слов</translation>
    </message>
    <message>
        <source>Suggested text models</source>
        <translation>Рекомендуемые текстовые модели</translation>
    </message>
    <message>
        <source>Adds a separate paid request. With Apple speech, only the transcript is sent for cleanup. The original transcript stays available.</source>
        <translation>Это отдельный платный запрос. При распознавании на компьютере на правку отправляется только расшифровка. Исходная расшифровка остаётся доступной.</translation>
    </message>
    <message>
        <source>Vesko Settings</source>
        <translation>Настройки Vesko</translation>
    </message>
    <message>
        <source>Personal dictionary</source>
        <translation>Личный словарь</translation>
    </message>
    <message>
        <source>Use personal dictionary</source>
        <translation>Использовать личный словарь</translation>
    </message>
    <message>
        <source>Learn from corrected dictation</source>
        <translation>Запоминать исправления в диктовке</translation>
    </message>
    <message>
        <source>Learning watches only the fragment Vesko pasted into the same focused field, for up to two minutes. Return followed by a cleared field is used as its send signal. Similar word corrections are enabled automatically; other replacements are saved as suggestions. For other send buttons, review the last corrections in Dictionary. Nothing is learned from secure or unreadable fields.</source>
        <translation>Vesko следит только за вставленным фрагментом в том же активном поле и не дольше двух минут. Сигналом отправки считается нажатие Enter, после которого поле очищается. Похожие исправления слов включаются автоматически, другие замены сохраняются как предложения. Если вы отправляете текст иначе, просмотрите последние исправления в словаре. В защищённых и нечитаемых полях ничего не запоминается.</translation>
    </message>
    <message>
        <source>Open Dictionary</source>
        <translation>Открыть словарь</translation>
    </message>
    <message>
        <source>Permissions</source>
        <translation>Разрешения</translation>
    </message>
    <message>
        <source>Microphone is used only while Recording. Accessibility checks the paste destination and, when learning is enabled, its inserted fragment. Input Monitoring observes Fn and a Return send signal; keystrokes are not saved.</source>
        <translation>Микрофон используется только во время записи. Специальные возможности нужны, чтобы проверить поле для вставки, а при включённом запоминании исправлений — и вставленный фрагмент; Vesko включает их при запуске, и они остаются включёнными. За клавиатурой Vesko следит ради своей клавиши и нажатия Enter при отправке; нажатия клавиш не сохраняются.</translation>
    </message>
    <message>
        <source>Open Privacy &amp; Security</source>
        <translation>Открыть настройки конфиденциальности</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>Конфиденциальность</translation>
    </message>
    <message>
        <source>Share anonymous usage analytics</source>
        <translation>Отправлять анонимную статистику использования</translation>
    </message>
    <message>
        <source>Enter a valid email address.</source>
        <translation>Введите правильный адрес электронной почты.</translation>
    </message>
    <message>
        <source>That code is not correct. Check the latest email and try again.</source>
        <translation>Неверный код. Проверьте последнее письмо и попробуйте ещё раз.</translation>
    </message>
    <message>
        <source>This code has expired. Request a new one.</source>
        <translation>Срок действия кода истёк. Запросите новый.</translation>
    </message>
    <message>
        <source>Too many attempts. Request a new code.</source>
        <translation>Слишком много попыток. Запросите новый код.</translation>
    </message>
    <message>
        <source>Too many requests. Wait a few minutes and try again.</source>
        <translation>Слишком много запросов. Подождите несколько минут и попробуйте ещё раз.</translation>
    </message>
    <message>
        <source>This sign-in method is not available yet. Choose another one.</source>
        <translation>Этот способ входа пока недоступен. Выберите другой.</translation>
    </message>
    <message>
        <source>Sign-in was cancelled.</source>
        <translation>Вход отменён.</translation>
    </message>
    <message>
        <source>Your session has ended. Sign in again.</source>
        <translation>Сеанс завершён. Войдите снова.</translation>
    </message>
    <message>
        <source>You are offline. Your notes stay on this Mac. Reconnect to sign in.</source>
        <translation>Нет подключения к сети. Заметки остаются на этом компьютере. Подключитесь, чтобы войти.</translation>
    </message>
    <message>
        <source>Vesko could not reach its account service. Try again in a moment.</source>
        <translation>Не удалось связаться с сервисом учётных записей Vesko. Попробуйте ещё раз чуть позже.</translation>
    </message>
    <message>
        <source>Capture was interrupted. The original file may be recovered or retried.</source>
        <translation>Запись была прервана. Исходный файл, возможно, удастся восстановить или расшифровать ещё раз.</translation>
    </message>
    <message>
        <source>Untitled note</source>
        <translation>Заметка без названия</translation>
    </message>
    <message>
        <source>Voice capture</source>
        <translation>Голосовая запись</translation>
    </message>
    <message>
        <source>Dictation</source>
        <translation>Диктовка</translation>
    </message>
    <message>
        <source>Voice note</source>
        <translation>Голосовая заметка</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>Идёт запись</translation>
    </message>
    <message>
        <source>Audio saved</source>
        <translation>Звук сохранён</translation>
    </message>
    <message>
        <source>Transcribing</source>
        <translation>Идёт расшифровка</translation>
    </message>
    <message>
        <source>Transcribing: %1 %</source>
        <translation>Расшифровка: %1 %</translation>
    </message>
    <message>
        <source>Transcribed</source>
        <translation>Расшифровано</translation>
    </message>
    <message>
        <source>Failed</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>Interrupted</source>
        <translation>Прервано</translation>
    </message>
    <message>
        <source>In progress</source>
        <translation>Выполняется</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Готово</translation>
    </message>
    <message>
        <source>Enter a project name between 1 and 80 characters.</source>
        <translation>Введите название проекта длиной от 1 до 80 знаков.</translation>
    </message>
    <message>
        <source>A project with this name already exists.</source>
        <translation>Проект с таким названием уже есть.</translation>
    </message>
    <message>
        <source>Enter two different terms between 1 and 80 characters. The dictionary holds up to 1,000 terms.</source>
        <translation>Введите два разных термина длиной от 1 до 80 знаков. В словаре помещается до 1000 терминов.</translation>
    </message>
    <message>
        <source>This recognized term is already in your dictionary. Edit its existing entry.</source>
        <translation>Этот распознаваемый термин уже есть в словаре. Измените существующую статью.</translation>
    </message>
    <message>
        <source>This item is no longer available.</source>
        <translation>Этого объекта больше нет.</translation>
    </message>
    <message>
        <source>The recording path is invalid. The library was preserved.</source>
        <translation>Недопустимый путь к записи. Библиотека сохранена.</translation>
    </message>
    <message>
        <source>This library was made by a newer Vesko. Update the app before opening it.</source>
        <translation>Эта библиотека создана более новой версией Vesko. Обновите программу, прежде чем открывать её.</translation>
    </message>
    <message>
        <source>The library could not be read. Your files were preserved. Open the data folder to recover its backup.</source>
        <translation>Не удалось прочитать библиотеку. Ваши файлы сохранены. Откройте папку данных, чтобы восстановить её из резервной копии.</translation>
    </message>
    <message>
        <source>The library is too large. Vesko can open up to 1 GB. Your files were preserved.</source>
        <translation>Библиотека слишком велика. Vesko открывает библиотеки размером до 1 ГБ. Ваши файлы сохранены.</translation>
    </message>
    <message>
        <source>Vesko is already using this library. Open the running app instead.</source>
        <translation>Эта библиотека уже открыта в Vesko. Перейдите в запущенную программу.</translation>
    </message>
    <message>
        <source>No speech was returned. Your audio is saved. You can retry with another model.</source>
        <translation>Речь не распознана. Звук сохранён. Можно попробовать другую модель.</translation>
    </message>
    <message>
        <source>Add your OpenRouter key in Settings. Your audio stays saved.</source>
        <translation>Добавьте ключ OpenRouter в настройках. Звук остаётся сохранённым.</translation>
    </message>
    <message>
        <source>Allow OpenRouter processing in Settings, or choose Apple on-device speech. Your original stays saved.</source>
        <translation>Разрешите обработку через OpenRouter в настройках или выберите распознавание на компьютере. Оригинал остаётся сохранённым.</translation>
    </message>
    <message>
        <source>Choose a model in Settings.</source>
        <translation>Выберите модель в настройках.</translation>
    </message>
    <message>
        <source>This audio is too large for one request. The original is saved. Use a shorter recording.</source>
        <translation>Звук слишком велик для одного запроса. Оригинал сохранён. Сделайте запись короче.</translation>
    </message>
    <message>
        <source>The provider returned an unreadable result. Your audio is saved.</source>
        <translation>Сервис вернул нечитаемый результат. Звук сохранён.</translation>
    </message>
    <message>
        <source>Vesko could not save this change. Check free disk space and access to the data folder.</source>
        <translation>Не удалось сохранить это изменение. Проверьте свободное место на диске и доступ к папке данных.</translation>
    </message>
    <message>
        <source>OpenRouter rejected this key. Check it in Settings.</source>
        <translation>OpenRouter отклонил этот ключ. Проверьте его в настройках.</translation>
    </message>
    <message>
        <source>OpenRouter needs more credit. Top up your account, then retry.</source>
        <translation>На счёте OpenRouter не хватает средств. Пополните счёт и повторите попытку.</translation>
    </message>
    <message>
        <source>The provider is busy or its limit was reached. Try again later.</source>
        <translation>Сервис занят или достигнут его предел. Повторите попытку позже.</translation>
    </message>
    <message>
        <source>The provider could not complete this request. Your audio is saved. Try again later.</source>
        <translation>Сервис не смог выполнить этот запрос. Звук сохранён. Повторите попытку позже.</translation>
    </message>
    <message>
        <source>Translation was unavailable. The original transcript was kept.</source>
        <translation>Перевести не удалось. Исходная расшифровка сохранена.</translation>
    </message>
    <message>
        <source>AI cleanup was unavailable. The original transcript was kept.</source>
        <translation>ИИ-правка не удалась. Исходная расшифровка сохранена.</translation>
    </message>
    <message>
        <source>Sign in to use Vesko Plus. Your audio is saved.</source>
        <translation>Войдите, чтобы пользоваться Vesko Plus. Звук сохранён.</translation>
    </message>
    <message>
        <source>Vesko Plus models are not available yet. Your audio is saved. Choose Apple on-device speech or your own key.</source>
        <translation>Модели Vesko Plus пока недоступны. Звук сохранён. Выберите распознавание на компьютере или свой ключ.</translation>
    </message>
    <message>
        <source>This month's Vesko Plus allowance is used up. Your audio is saved. It renews at the start of next month.</source>
        <translation>Объём Vesko Plus на этот месяц исчерпан. Звук сохранён. Новый объём появится в начале следующего месяца.</translation>
    </message>
    <message>
        <source>Today's Vesko Plus limit is reached. Your audio is saved. Try again tomorrow.</source>
        <translation>Дневной предел Vesko Plus достигнут. Звук сохранён. Попробуйте ещё раз завтра.</translation>
    </message>
    <message>
        <source>Vesko Plus paused cloud requests for a while after unusually heavy use. Your audio is saved. Try again later.</source>
        <translation>Vesko Plus на время приостанавливает облачные запросы из-за необычно частого использования. Звук сохранён. Повторите попытку позже.</translation>
    </message>
    <message>
        <source>Vesko Plus is busy right now. Your audio is saved. Try again later.</source>
        <translation>Vesko Plus сейчас занят. Звук сохранён. Повторите попытку позже.</translation>
    </message>
    <message>
        <source>The result did not arrive. Your audio is saved. Vesko did not repeat the request, so you are not charged twice; retry when you are ready.</source>
        <translation>Результат не пришёл. Звук сохранён. Запрос не был повторён, так что вы не заплатите дважды; повторите его, когда будете готовы.</translation>
    </message>
    <message>
        <source>This request already finished once. Retry to transcribe it again.</source>
        <translation>Этот запрос уже был выполнен. Повторите его, чтобы расшифровать запись ещё раз.</translation>
    </message>
    <message>
        <source>The model refused this request. Your audio is saved. Retry or choose another model.</source>
        <translation>Модель отклонила этот запрос. Звук сохранён. Повторите попытку или выберите другую модель.</translation>
    </message>
    <message>
        <source>Vesko Plus returned an unreadable result. Your audio is saved.</source>
        <translation>Vesko Plus возвращает нечитаемый результат. Звук сохранён.</translation>
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
        <translation>Электронная почта</translation>
    </message>
    <message>
        <source>Apple ID with hidden email</source>
        <translation>Apple ID со скрытым адресом</translation>
    </message>
    <message>
        <source>We sent a 6-digit code to %1. It works for 10 minutes.</source>
        <translation>Код из 6 цифр отправлен на адрес %1. Он действует 10 минут.</translation>
    </message>
    <message>
        <source>Signed out. Your notes stay on this Mac.</source>
        <translation>Вы вышли. Заметки остаются на этом компьютере.</translation>
    </message>
    <message>
        <source>Your Vesko account was deleted. Notes and recordings on this Mac were kept.</source>
        <translation>Ваша учётная запись Vesko удалена. Заметки и записи на этом компьютере сохранены.</translation>
    </message>
    <message>
        <source>Enter the 6-digit code sent to %1</source>
        <translation>Введите код из 6 цифр, отправленный на адрес %1</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>Проверка…</translation>
    </message>
    <message>
        <source>Sign in</source>
        <translation>Войти</translation>
    </message>
    <message>
        <source>Opens Google in a private sign-in window</source>
        <translation>Google откроется в вашем браузере</translation>
    </message>
    <message>
        <source>Google sign-in is not configured in this build</source>
        <translation>В этой сборке вход через Google не настроен</translation>
    </message>
    <message>
        <source>Allow Speech Recognition for Vesko in System Settings, or choose OpenRouter.</source>
        <translation>Разрешите Vesko распознавать речь в настройках рабочего стола или выберите OpenRouter.</translation>
    </message>
    <message>
        <source>On-device speech is unavailable for this language. Choose another language or OpenRouter. Your audio is saved.</source>
        <translation>Для этого языка распознавание на компьютере недоступно. Выберите другой язык или OpenRouter. Звук сохранён.</translation>
    </message>
    <message>
        <source>On-device speech is not available right now. Your audio is saved. Try again or choose OpenRouter.</source>
        <translation>Распознавание на компьютере сейчас недоступно. Звук сохранён. Попробуйте ещё раз или выберите OpenRouter.</translation>
    </message>
    <message>
        <source>On-device transcription timed out. Your audio is saved.</source>
        <translation>Расшифровка на компьютере заняла слишком много времени. Звук сохранён.</translation>
    </message>
    <message>
        <source>On-device transcription failed. Your audio is saved. Retry or choose OpenRouter.</source>
        <translation>Расшифровка на компьютере не удалась. Звук сохранён. Повторите попытку или выберите OpenRouter.</translation>
    </message>
    <message>
        <source>Ready to capture</source>
        <translation>Готово к записи</translation>
    </message>
    <message>
        <source>Ready to capture. Speech is recognized on this computer, without a key.</source>
        <translation>Готово к записи. Речь распознаётся на этом компьютере, без ключа.</translation>
    </message>
    <message>
        <source>Ready to capture. Speech is recognized on this computer until your password store (keyring) says whether it holds a key.</source>
        <translation>Готово к записи. Речь распознаётся на этом компьютере, пока хранилище паролей (связка ключей) не ответит, есть ли в нём ключ.</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Готово</translation>
    </message>
    <message>
        <source>Starting microphone</source>
        <translation>Включение микрофона</translation>
    </message>
    <message>
        <source>Allow Microphone for Vesko in System Settings &gt; Privacy &amp; Security &gt; Microphone, then try again.</source>
        <translation>Разрешите Vesko доступ к микрофону в настройках рабочего стола и попробуйте ещё раз.</translation>
    </message>
    <message>
        <source>Recording. Press the shortcut again to finish.</source>
        <translation>Идёт запись. Нажмите сочетание клавиш ещё раз, чтобы закончить.</translation>
    </message>
    <message>
        <source>No sound comes from the microphone. What was said before is kept; the recording goes on when sound comes again.</source>
        <translation>С микрофона не поступает звук. Сказанное раньше сохранено; запись продолжится, когда звук появится снова.</translation>
    </message>
    <message>
        <source>Original saved. Transcribing…</source>
        <translation>Оригинал сохранён. Идёт расшифровка…</translation>
    </message>
    <message>
        <source>The model catalog could not be loaded. Your current choices were kept.</source>
        <translation>Не удалось загрузить каталог моделей. Ваш выбор сохранён.</translation>
    </message>
    <message>
        <source>Model catalog updated</source>
        <translation>Каталог моделей обновлён</translation>
    </message>
    <message>
        <source>Recording cancelled. The audio is saved.</source>
        <translation>Запись отменена. Звук сохранён.</translation>
    </message>
    <message>
        <source>Fn combination used. Audio saved without transcription.</source>
        <translation>Нажато сочетание клавиш. Звук сохранён без расшифровки.</translation>
    </message>
    <message>
        <source>%1 will be used for dictation</source>
        <translation>Язык диктовки: %1</translation>
    </message>
    <message>
        <source>Vesko will use it for dictation. Another language transcribes the last recording again.</source>
        <translation>Это будет язык диктовки. Если выбрать другой, последняя запись расшифруется ещё раз.</translation>
    </message>
    <message>
        <source>Vesko will use it for dictation.</source>
        <translation>Это будет язык диктовки.</translation>
    </message>
    <message numerus="yes">
        <source>Added %1 dictionary corrections. Review them in Dictionary.</source>
        <translation>
            <numerusform>В словарь добавлено %1 исправление. Просмотрите добавленное в словаре.</numerusform>
            <numerusform>В словарь добавлено %1 исправления. Просмотрите добавленное в словаре.</numerusform>
            <numerusform>В словарь добавлено %1 исправлений. Просмотрите добавленное в словаре.</numerusform>
        </translation>
    </message>
    <message>
        <source>Dictionary saved</source>
        <translation>Словарь сохранён</translation>
    </message>
    <message>
        <source>This note has no text to copy yet</source>
        <translation>В этой заметке пока нет текста для копирования</translation>
    </message>
    <message>
        <source>Note copied to clipboard</source>
        <translation>Заметка скопирована в буфер обмена</translation>
    </message>
    <message>
        <source>Markdown exported</source>
        <translation>Заметка экспортирована в Markdown</translation>
    </message>
    <message>
        <source>Saved to your note</source>
        <translation>Сохранено в вашей заметке</translation>
    </message>
    <message>
        <source>Copied. Paste sent to the original field.</source>
        <translation>Скопировано. Текст отправлен в исходное поле.</translation>
    </message>
    <message>
        <source>The text is saved, but the clipboard could not be updated. Copy it from your note.</source>
        <translation>Текст сохранён, но обновить буфер обмена не удалось. Скопируйте текст из заметки.</translation>
    </message>
    <message>
        <source>Copied to clipboard</source>
        <translation>Скопировано в буфер обмена</translation>
    </message>
    <message>
        <source>Audio saved. Transcription needs attention.</source>
        <translation>Звук сохранён. Расшифровка требует внимания.</translation>
    </message>
    <message>
        <source>Translation needs an OpenRouter key. The original transcript was kept.</source>
        <translation>Для перевода нужен ключ OpenRouter. Исходная расшифровка сохранена.</translation>
    </message>
    <message>
        <source>AI cleanup needs an OpenRouter key. The original transcript was kept.</source>
        <translation>Для ИИ-правки нужен ключ OpenRouter. Исходная расшифровка сохранена.</translation>
    </message>
    <message>
        <source>Recording stopped unexpectedly. Your original file was kept.</source>
        <translation>Запись неожиданно остановилась. Исходный файл сохранён.</translation>
    </message>
    <message>
        <source>Recording was interrupted by an audio error. Your original file was kept.</source>
        <translation>Запись прервана из-за ошибки звука. Исходный файл сохранён.</translation>
    </message>
    <message>
        <source>The microphone could not start. Check your audio input and try again.</source>
        <translation>Не удалось включить микрофон. Проверьте источник звука и попробуйте ещё раз.</translation>
    </message>
    <message>
        <source>The network is unavailable. Your recording is saved. Reconnect and retry.</source>
        <translation>Сеть недоступна. Ваша запись сохранена. Подключитесь и повторите попытку.</translation>
    </message>
    <message>
        <source>The provider timed out. Your recording is saved. A retry may incur another provider charge.</source>
        <translation>Сервис не ответил вовремя. Ваша запись сохранена. За повтор может взиматься новая плата.</translation>
    </message>
    <message>
        <source>The network request could not finish. Your recording is saved. Retry when ready.</source>
        <translation>Сетевой запрос не удалось завершить. Ваша запись сохранена. Повторите попытку, когда будете готовы.</translation>
    </message>
    <message>
        <source>Vesko could not complete this operation. Your saved files were preserved. Check the data folder and try again.</source>
        <translation>Не удалось выполнить это действие. Ваши сохранённые файлы целы. Проверьте папку данных и попробуйте ещё раз.</translation>
    </message>
    <message>
        <source>1 term</source>
        <translation>1 термин</translation>
    </message>
    <message numerus="yes">
        <source>%1 terms</source>
        <translation>
            <numerusform>%1 термин</numerusform>
            <numerusform>%1 термина</numerusform>
            <numerusform>%1 терминов</numerusform>
        </translation>
    </message>
    <message>
        <source>No matching terms</source>
        <translation>Подходящих терминов нет</translation>
    </message>
    <message>
        <source>Try another search.</source>
        <translation>Измените запрос.</translation>
    </message>
    <message>
        <source>Your personal dictionary</source>
        <translation>Ваш личный словарь</translation>
    </message>
    <message>
        <source>Add names, product terms and frequent corrections. Similar spelling fixes can be learned after you edit and send a pasted dictation.</source>
        <translation>Добавляйте имена, названия продуктов и частые исправления. Похожие исправления запоминаются, когда вы правите вставленную диктовку и отправляете её.</translation>
    </message>
    <message>
        <source>Save term</source>
        <translation>Сохранить термин</translation>
    </message>
    <message>
        <source>Add term</source>
        <translation>Добавить термин</translation>
    </message>
    <message numerus="yes">
        <source>Last edited paste: %1 word corrections</source>
        <translation>
            <numerusform>В последней вставке исправлено %1 слово</numerusform>
            <numerusform>В последней вставке исправлено %1 слова</numerusform>
            <numerusform>В последней вставке исправлено %1 слов</numerusform>
        </translation>
    </message>
    <message>
        <source>Added by you</source>
        <translation>Добавлено вами</translation>
    </message>
    <message>
        <source>Learned spelling</source>
        <translation>Запомненное написание</translation>
    </message>
    <message>
        <source>Suggestion, review before enabling</source>
        <translation>Предложение, проверьте перед включением</translation>
    </message>
    <message>
        <source>Copied. Allow Accessibility for Vesko in System Settings to paste automatically.</source>
        <translation>Скопировано. Включите специальные возможности в настройках рабочего стола, чтобы текст вставлялся автоматически.</translation>
    </message>
    <message>
        <source>Copied. No text field was focused when you started. Paste it with Command V.</source>
        <translation>Скопировано. Когда вы начали, ни одно текстовое поле не было активно. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Vesko could not see which field was in use, so it did not paste. Paste it with Command V.</source>
        <translation>Скопировано. Vesko не видно, какое поле было активно, поэтому автоматической вставки не было. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>this desktop</source>
        <translation>этот рабочий стол</translation>
    </message>
    <message>
        <source>%1 gives programs no shortcuts of their own. In its configuration, let keys of your choice run “vesko --toggle”.</source>
        <translation>%1 не даёт программам собственных сочетаний клавиш. Назначьте в его настройках сочетание, которое запускает «vesko --toggle».</translation>
    </message>
    <message>
        <source>%1 shows no program the keys that are pressed in another one.</source>
        <translation>%1 не показывает программам клавиши, нажатые в других программах.</translation>
    </message>
    <message>
        <source>Without Xwayland %1 lets Vesko copy and paste nothing while another program is in use. The text is in your note.</source>
        <translation>Без Xwayland %1 не даёт Vesko ничего копировать и вставлять, пока используется другая программа. Текст — в вашей заметке.</translation>
    </message>
    <message>
        <source>On %1 Vesko can't paste into other programs. Text is copied, and you paste it yourself.</source>
        <translation>Здесь, где рабочий стол — %1, Vesko не может вставлять текст в другие программы. Текст копируется, и вы вставляете его сами.</translation>
    </message>
    <message>
        <source>%1 does not show Vesko when you press Return, so your corrections wait for your review.</source>
        <translation>%1 не показывает Vesko, когда вы нажимаете Return, поэтому исправления ждут вашей проверки.</translation>
    </message>
    <message>
        <source>Not offered here</source>
        <translation>Здесь недоступно</translation>
    </message>
    <message>
        <source>Copied. You started in Vesko itself, not in another program. Paste it with Command V.</source>
        <translation>Скопировано. Вы начали в самой программе Vesko, а не в другой. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. This program does not show its text fields to Vesko. Paste it with Command V or the program's own shortcut.</source>
        <translation>Скопировано. Эта программа не показывает Vesko свои текстовые поля. Вставьте текст клавишами Ctrl+V, в терминале — Ctrl+Shift+V, в Emacs — Ctrl+Y.</translation>
    </message>
    <message>
        <source>Copied. Vesko does not paste where letters are hidden, as in a password.</source>
        <translation>Скопировано. Vesko не вставляет текст туда, где буквы скрыты, например в пароль.</translation>
    </message>
    <message>
        <source>Copied. The paste shortcut could not be sent. Paste it with Command V.</source>
        <translation>Скопировано. Не удалось послать сочетание клавиш для вставки. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Paste was sent, but the field does not show the text. If it is missing, paste it with Command V.</source>
        <translation>Скопировано. Вставка отправлена, но текста в поле не видно. Если его нет, вставьте его клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. You moved to another field, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Скопировано. Вы перешли в другое поле, поэтому автоматической вставки не было. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. This field does not accept automatic paste. Paste it with Command V.</source>
        <translation>Скопировано. Это поле не принимает автоматическую вставку. Вставьте текст клавишами Ctrl+V, в GVim — через «Правка &gt; Вклеить».</translation>
    </message>
    <message>
        <source>Copied. No active window was known when you started, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Скопировано. Когда вы начали, активное окно не было известно, поэтому автоматической вставки не было. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. More than two minutes passed, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Скопировано. Прошло больше двух минут, поэтому автоматической вставки не было. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. The session was locked, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Скопировано. Сеанс был заблокирован, поэтому автоматической вставки не было. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Another program was holding the keyboard, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Скопировано. Клавиатуру удерживала другая программа, поэтому автоматической вставки не было. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. A key was held down, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Скопировано. Была нажата клавиша, поэтому автоматической вставки не было. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Shift, Alt or another such key was latched or locked, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Скопировано. Shift, Alt или другая такая клавиша была зафиксирована, поэтому автоматической вставки не было. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Slow keys are switched on in the desktop's settings, so Vesko can't paste. Paste it with Command V.</source>
        <translation>Скопировано. В настройках рабочего стола включены медленные клавиши, поэтому Vesko не может вставить текст. Вставьте его клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>A running dictation is being saved</source>
        <translation>Сохраняется начатая диктовка</translation>
    </message>
    <message>
        <source>Copied. Paste it when you are ready.</source>
        <translation>Скопировано. Вставьте текст, когда будете готовы.</translation>
    </message>
    <message>
        <source>Trash is empty</source>
        <translation>Корзина пуста</translation>
    </message>
    <message>
        <source>Notes you move to Trash can be restored here.</source>
        <translation>Заметки из корзины можно восстановить здесь.</translation>
    </message>
    <message>
        <source>No matching notes</source>
        <translation>Подходящих заметок нет</translation>
    </message>
    <message>
        <source>Try another search or clear the search field.</source>
        <translation>Измените запрос или очистите поле поиска.</translation>
    </message>
    <message>
        <source>Clear search</source>
        <translation>Очистить поиск</translation>
    </message>
    <message>
        <source>A place for your next thought</source>
        <translation>Место для вашей следующей мысли</translation>
    </message>
    <message>
        <source>Record your voice or start a text note. Your originals stay on this Mac.</source>
        <translation>Запишите голос или создайте текстовую заметку. Оригиналы остаются на этом компьютере.</translation>
    </message>
    <message>
        <source>Recording %1</source>
        <translation>Идёт запись: %1</translation>
    </message>
    <message>
        <source>Finish recording</source>
        <translation>Закончить запись</translation>
    </message>
    <message>
        <source>Record note</source>
        <translation>Записать заметку</translation>
    </message>
    <message>
        <source>Processing</source>
        <translation>Обработка</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Вчера</translation>
    </message>
    <message>
        <source>Provider cost not reported</source>
        <translation>Сервис не сообщил стоимость</translation>
    </message>
    <message>
        <source>Reported cost: %1</source>
        <translation>Стоимость по данным сервиса: %1</translation>
    </message>
    <message>
        <source>Retry…</source>
        <translation>Повторить…</translation>
    </message>
    <message>
        <source>Step %1 of %2</source>
        <translation>Шаг %1 из %2</translation>
    </message>
    <message>
        <source>Start using Vesko</source>
        <translation>Начать работу с Vesko</translation>
    </message>
    <message>
        <source>Get started</source>
        <translation>Начать</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Продолжить</translation>
    </message>
    <message>
        <source>Microphone</source>
        <translation>Микрофон</translation>
    </message>
    <message>
        <source>Records only while you dictate.</source>
        <translation>Записывает, только пока вы диктуете.</translation>
    </message>
    <message>
        <source>Speech Recognition</source>
        <translation>Распознавание речи</translation>
    </message>
    <message>
        <source>Apple on-device transcription.</source>
        <translation>Расшифровка на этом компьютере с помощью установленной модели.</translation>
    </message>
    <message>
        <source>Accessibility</source>
        <translation>Специальные возможности</translation>
    </message>
    <message>
        <source>Input Monitoring</source>
        <translation>Клавиатура</translation>
    </message>
    <message>
        <source>Notices the Fn key. Keystrokes are not saved.</source>
        <translation>Замечает клавишу диктовки. Нажатия клавиш не сохраняются.</translation>
    </message>
    <message>
        <source>Allowed</source>
        <translation>Разрешено</translation>
    </message>
    <message>
        <source>Not allowed</source>
        <translation>Не разрешено</translation>
    </message>
    <message>
        <source>Review</source>
        <translation>Проверить</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>Разрешить</translation>
    </message>
    <message>
        <source>Enable Vesko in Accessibility. If it is missing, add Vesko.app from your Applications folder.</source>
        <translation>Специальные возможности включены и остаются включёнными. Программы, которые уже были открыты, возможно, придётся запустить заново, чтобы Vesko мог вставлять в них текст.</translation>
    </message>
    <message>
        <source>Enable Vesko in Input Monitoring. If it is missing, use the + button and select Vesko.app. If macOS asks, choose Quit &amp; Reopen. Command Shift Space remains available.</source>
        <translation>Vesko следит за клавиатурой, если рабочий стол это позволяет. Если рабочий стол сам использует эту клавишу, выберите другую клавишу диктовки. Сочетание клавиш остаётся доступным.</translation>
    </message>
    <message>
        <source>Microphone access is ready</source>
        <translation>Доступ к микрофону есть</translation>
    </message>
    <message>
        <source>Allow Vesko in System Settings &gt; Privacy &amp; Security &gt; Microphone.</source>
        <translation>Не удалось открыть микрофон. Подключите его либо выберите и включите его в настройках звука рабочего стола.</translation>
    </message>
    <message>
        <source>Vesko could not access your key in Keychain. Unlock your Mac and try again.</source>
        <translation>Не удалось получить ключ из вашего хранилища паролей (связки ключей). Разблокируйте его и попробуйте ещё раз.</translation>
    </message>
    <message>
        <source>Function key</source>
        <translation>Клавиша Fn</translation>
    </message>
    <message>
        <source>Right Ctrl</source>
        <translation>Правый Ctrl</translation>
    </message>
    <message>
        <source>Right Alt</source>
        <translation>Правый Alt</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Scroll Lock</source>
        <translation>Scroll Lock</translation>
    </message>
    <message>
        <source>Automatic lets the speech model guess, and a short phrase can come back in the wrong language. After your next dictation Vesko asks which language you speak and remembers it.</source>
        <translation>В режиме «Автоматически» модель угадывает язык сама, и короткая фраза может вернуться на другом языке. После следующей диктовки Vesko спросит, на каком языке вы говорите, и запомнит его.</translation>
    </message>
    <message>
        <source>Vesko tells the speech model you speak %1. Choose Automatic if you switch between languages.</source>
        <translation>Vesko сообщает модели язык вашей речи: %1. Выберите «Автоматически», если говорите на разных языках.</translation>
    </message>
    <message>
        <source>Saved in Keychain</source>
        <translation>Сохранён в связке ключей</translation>
    </message>
    <message>
        <source>No key saved</source>
        <translation>Ключ не сохранён</translation>
    </message>
    <message>
        <source>Enter a replacement key</source>
        <translation>Введите новый ключ</translation>
    </message>
    <message>
        <source>Opening library…</source>
        <translation>Открывается библиотека…</translation>
    </message>
    <message>
        <source>Loading models…</source>
        <translation>Загрузка моделей…</translation>
    </message>
    <message>
        <source>Refresh model catalog</source>
        <translation>Обновить каталог моделей</translation>
    </message>
    <message>
        <source>Analytics is not configured in this build. No events are sent.</source>
        <translation>В этой сборке статистика не настроена. События не отправляются.</translation>
    </message>
    <message>
        <source>Optional usage events go to %1. They include a random analytics identifier and app version, never your audio, notes, project names, filenames, receipts or keys. Turning this off clears unsent events and removes the local identifier. It does not erase events already sent.</source>
        <translation>События использования отправляются на %1, если вы этого хотите. В них есть случайный идентификатор статистики и версия программы, но никогда нет вашего звука, заметок, названий проектов, имён файлов, чеков и ключей. При выключении неотправленные события стираются, а идентификатор удаляется с компьютера. Уже отправленные события не стираются.</translation>
    </message>
    <message>
        <source>Key saved in Keychain</source>
        <translation>Ключ сохранён в связке ключей</translation>
    </message>
    <message>
        <source>Key removed</source>
        <translation>Ключ удалён</translation>
    </message>
    <message>
        <source>Launch at login could not be changed. Check Login Items in System Settings.</source>
        <translation>Не удалось изменить запуск при входе в систему. Проверьте автозапуск в настройках рабочего стола.</translation>
    </message>
    <message>
        <source>Apple on-device</source>
        <translation>На этом компьютере</translation>
    </message>
    <message>
        <source>OpenRouter</source>
        <translation>OpenRouter</translation>
    </message>
    <message>
        <source>Vesko access</source>
        <translation>Доступ через Vesko</translation>
    </message>
    <message>
        <source>My personal key</source>
        <translation>Мой личный ключ</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Автоматически</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Выключено</translation>
    </message>
    <message>
        <source>Click once to stop. Drag to move. Right-click for the menu.</source>
        <translation>Нажмите один раз, чтобы остановить запись. Перетащите, чтобы переместить. Меню — по щелчку правой кнопкой.</translation>
    </message>
    <message>
        <source>Dictionary…</source>
        <translation>Словарь…</translation>
    </message>
    <message>
        <source>Welcome Tour…</source>
        <translation>Знакомство с Vesko…</translation>
    </message>
    <message>
        <source>About Vesko</source>
        <translation>О программе Vesko</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ОК</translation>
    </message>
    <message>
        <source>The model can't be reached. What has arrived is kept. Check the connection and try again.</source>
        <translation>Модель недоступна. Загруженная часть сохранена. Проверьте соединение и попробуйте снова.</translation>
    </message>
    <message>
        <source>The server doesn't have this model. Try again later.</source>
        <translation>На сервере нет этой модели. Попробуйте позже.</translation>
    </message>
    <message>
        <source>There isn't enough room on the disk for this model.</source>
        <translation>На диске недостаточно места для этой модели.</translation>
    </message>
    <message>
        <source>The model can't be saved.</source>
        <translation>Не удалось сохранить модель.</translation>
    </message>
    <message>
        <source>The model arrived damaged and was removed. Try again.</source>
        <translation>Модель загрузилась с повреждениями и была удалена. Попробуйте снова.</translation>
    </message>
    <message>
        <source>The download was paused. What has arrived is kept.</source>
        <translation>Загрузка приостановлена. Загруженная часть сохранена.</translation>
    </message>
    <message>
        <source>No speech was heard. The recording is saved.</source>
        <translation>Речи не слышно. Запись сохранена.</translation>
    </message>
    <message>
        <source>The speech engine that you chose isn't there. Choose one in Settings. Your audio is saved.</source>
        <translation>Выбранного распознавателя речи нет. Выберите другой в настройках. Звук сохранён.</translation>
    </message>
    <message>
        <source>Vesko is busy. Try again in a moment.</source>
        <translation>Vesko занят. Попробуйте через минуту.</translation>
    </message>
    <message>
        <source>This engine isn't there.</source>
        <translation>Этого распознавателя нет.</translation>
    </message>
    <message>
        <source>“%1”, %2 seconds after the end</source>
        <translation>«%1», через %2 с после конца</translation>
    </message>
    <message>
        <source>Loading %1: %2 %</source>
        <translation>Загрузка %1: %2 %</translation>
    </message>
    <message>
        <source>The model %1 is there.</source>
        <translation>Модель %1 загружена.</translation>
    </message>
    <message>
        <source>A program of your own</source>
        <translation>Своя программа</translation>
    </message>
    <message>
        <source>Any program that prints the words of a WAV file.</source>
        <translation>Любая программа, которая печатает слова из файла WAV.</translation>
    </message>
    <message>
        <source>A server of your own</source>
        <translation>Свой сервер</translation>
    </message>
    <message>
        <source>Any server with OpenAI's way to transcribe. The sound leaves this computer unless the server runs on it.</source>
        <translation>Любой сервер, который распознаёт речь так же, как OpenAI. Звук покидает этот компьютер, если сервер работает не на нём.</translation>
    </message>
    <message>
        <source>finds out the language</source>
        <translation>сам определяет язык</translation>
    </message>
    <message>
        <source>lower case, no punctuation</source>
        <translation>строчными буквами, без знаков препинания</translation>
    </message>
    <message>
        <source>Name a program and its arguments, with {wav} where the sound's file belongs. {language} and {model} stand for the language and the model.</source>
        <translation>Укажите программу и её аргументы, а там, где нужен файл со звуком, {wav}. {language} и {model} обозначают язык и модель.</translation>
    </message>
    <message>
        <source>Enter an address that begins with https://. Plain http:// is for servers on this computer.</source>
        <translation>Введите адрес, который начинается с https://. Простой http:// годится только для серверов на этом компьютере.</translation>
    </message>
    <message>
        <source>The chosen engine isn't there. Until you choose another, recordings are only saved.</source>
        <translation>Выбранного распознавателя нет. Пока вы не выберете другой, записи только сохраняются.</translation>
    </message>
    <message>
        <source>For other languages, punctuation and far fewer wrong words, install whisper.cpp (its program whisper-cli is found by itself) and get a model below.</source>
        <translation>Чтобы были другие языки, знаки препинания и намного меньше ошибок, установите whisper.cpp (его программа whisper-cli находится сама) и загрузите ниже модель.</translation>
    </message>
    <message>
        <source>Speech on this computer</source>
        <translation>Речь на этом компьютере</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Используется</translation>
    </message>
    <message>
        <source>Try</source>
        <translation>Проба</translation>
    </message>
    <message>
        <source>Done speaking</source>
        <translation>Готово</translation>
    </message>
    <message>
        <source>Speak a sentence now. Nothing of it is stored.</source>
        <translation>Скажите предложение. Ничего не сохраняется.</translation>
    </message>
    <message>
        <source>Looking for engines…</source>
        <translation>Поиск распознавателей…</translation>
    </message>
    <message>
        <source>Server address</source>
        <translation>Адрес сервера</translation>
    </message>
    <message>
        <source>Model of the server</source>
        <translation>Модель сервера</translation>
    </message>
    <message>
        <source>Key of the server</source>
        <translation>Ключ сервера</translation>
    </message>
    <message>
        <source>Save the key of the server</source>
        <translation>Сохранить ключ сервера</translation>
    </message>
    <message>
        <source>Get a model</source>
        <translation>Загрузить модель</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Загрузить</translation>
    </message>
    <message>
        <source>Tell the engine the terms of your dictionary</source>
        <translation>Сообщать распознавателю термины из словаря</translation>
    </message>
    <message>
        <source>Pause loading</source>
        <translation>Приостановить</translation>
    </message>
    <message numerus="yes">
        <source>%1 languages</source>
        <translation>
            <numerusform>%1 язык</numerusform>
            <numerusform>%1 языка</numerusform>
            <numerusform>%1 языков</numerusform>
        </translation>
    </message>
    <message>
        <source>No password store (keyring) runs here, so Vesko has no place for keys. Start one, such as GNOME Keyring, KWallet or KeePassXC, and try again.</source>
        <translation>Здесь не запущено хранилище паролей (связка ключей), и Vesko негде держать ключи. Запустите его, например GNOME Keyring, KWallet или KeePassXC, и попробуйте снова.</translation>
    </message>
    <message>
        <source>Audio is sent to OpenRouter and its selected transcription provider. Provider retention policies apply. Your personal key's balance is used.</source>
        <translation>Звук отправляется в OpenRouter и выбранному там сервису распознавания. Действуют правила хранения этого сервиса. Расходуется баланс вашего личного ключа.</translation>
    </message>
    <message>
        <source>The library could not be opened</source>
        <translation>Библиотеку не удалось открыть</translation>
    </message>
    <message>
        <source>Vesko found no program for your desktop's settings. Please open them yourself.</source>
        <translation>Vesko не нашёл программу настроек рабочего стола. Откройте их сами.</translation>
    </message>
    <message>
        <source>A speech model for %1 is installed.</source>
        <translation>Модель речи установлена. Язык: %1.</translation>
    </message>
    <message>
        <source>No speech model for %1 is installed. Install the package pocketsphinx-en-us, or choose another engine or OpenRouter in Settings.</source>
        <translation>Модель речи не установлена. Язык: %1. Установите пакет pocketsphinx-en-us или выберите в настройках другое распознавание или OpenRouter.</translation>
    </message>
    <message>
        <source>No speech model for %1 is installed. Choose another engine or OpenRouter in Settings.</source>
        <translation>Модель речи не установлена. Язык: %1. Выберите в настройках другое распознавание или OpenRouter.</translation>
    </message>
    <message>
        <source>No speech model</source>
        <translation>Нет модели речи</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Подробнее</translation>
    </message>
    <message>
        <source>Accessibility is on. Vesko can paste into the field you started in.</source>
        <translation>Специальные возможности включены. Vesko может вставлять текст в поле, с которого вы начали.</translation>
    </message>
    <message>
        <source>Vesko notices the dictation key.</source>
        <translation>Vesko замечает клавишу диктовки.</translation>
    </message>
    <message>
        <source>Moved to Trash</source>
        <translation>Перемещено в корзину</translation>
    </message>
    <message>
        <source>Removed “%1”</source>
        <translation>Удалено: «%1»</translation>
    </message>
    <message>
        <source>Not in this text</source>
        <translation>В этом тексте нет</translation>
    </message>
    <message>
        <source>Matches in this text: %1</source>
        <translation>Найдено в этом тексте: %1</translation>
    </message>
    <message>
        <source>Match %1 of %2</source>
        <translation>Совпадение %1 из %2</translation>
    </message>
    <message>
        <source>Previous match</source>
        <translation>Предыдущее совпадение</translation>
    </message>
    <message>
        <source>Next match</source>
        <translation>Следующее совпадение</translation>
    </message>
    <message>
        <source>Version %1, build %2</source>
        <translation>Версия %1, сборка %2</translation>
    </message>
    <message>
        <source>MIT License</source>
        <translation>Лицензия MIT</translation>
    </message>
    <message>
        <source>%1 to dictate</source>
        <translation>%1 — диктовка</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Пробел</translation>
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
        <translation>Shift</translation>
    </message>
    <message>
        <source>Press %1 and speak</source>
        <translation>Нажмите %1 и говорите</translation>
    </message>
    <message>
        <source>Press again to finish. Vesko pastes into the field you started in.</source>
        <translation>Нажмите ещё раз, чтобы закончить. Vesko вставит текст в поле, с которого вы начали.</translation>
    </message>
    <message>
        <source>Or press %1</source>
        <translation>Или нажмите %1</translation>
    </message>
    <message>
        <source>Give the clipboard back after a paste</source>
        <translation>Возвращать буфер обмена после вставки</translation>
    </message>
    <message>
        <source>What you had copied before, up to 16 MB, is there again once the field shows the dictated text. Where that can&apos;t be seen, the dictated text stays on the clipboard.</source>
        <translation>Скопированное ранее (до 16 МБ) возвращается, как только поле покажет продиктованный текст. Если этого не видно, в буфере обмена остаётся продиктованный текст.</translation>
    </message>
    <message>
        <source>Pasted into the original field. The clipboard holds what it held before.</source>
        <translation>Вставлено в исходное поле. В буфере обмена снова то, что было раньше.</translation>
    </message>
    <message>
        <source>%1 is unavailable: another program has it. Use the floating button, or choose another shortcut in the settings.</source>
        <translation>Сочетание %1 недоступно: его занимает другая программа. Используйте плавающую кнопку или выберите другое сочетание в настройках.</translation>
    </message>
    <message>
        <source>Global shortcut: %1</source>
        <translation>Глобальное сочетание: %1</translation>
    </message>
    <message>
        <source>Press the new shortcut…</source>
        <translation>Нажмите новое сочетание…</translation>
    </message>
    <message>
        <source>%1 can&apos;t be had: another program has it. Choose another shortcut.</source>
        <translation>Сочетание %1 занято другой программой. Выберите другое.</translation>
    </message>
    <message>
        <source>%1 is what text is pasted with, by Vesko too. Choose another shortcut.</source>
        <translation>С помощью %1 вставляют текст, в том числе Vesko. Выберите другое сочетание.</translation>
    </message>
    <message>
        <source>%1 is typed with. A shortcut needs Ctrl, Alt or Super.</source>
        <translation>%1 нужно для ввода текста. В сочетании должна быть клавиша Ctrl, Alt или Super.</translation>
    </message>
    <message>
        <source>No shortcut can be made with this key.</source>
        <translation>С этой клавишей сочетание не получится.</translation>
    </message>
    <message>
        <source>Pastes into the field you started in. Vesko switches it on, and it stays on.</source>
        <translation>Вставка в поле, с которого вы начали. Vesko включает их, и они остаются включёнными.</translation>
    </message>
    <message>
        <source>This desktop has no accessibility bus, so nothing was turned on. Install the package at-spi2-core, and start the session anew.</source>
        <translation>На этом рабочем столе нет шины специальных возможностей, поэтому ничего не включено. Установите пакет at-spi2-core и начните сеанс заново.</translation>
    </message>
    <message>
        <source>Click once to record. Drag to move. Right-click for the menu.</source>
        <translation>Нажмите один раз, чтобы начать запись. Перетащите, чтобы переместить. Меню — по щелчку правой кнопкой.</translation>
    </message>
    <message>
        <source>Click once to record. Drag to move. Right-click for the menu. Shortcut: %1</source>
        <translation>Нажмите один раз, чтобы начать запись. Перетащите, чтобы переместить. Меню — по щелчку правой кнопкой. Сочетание клавиш: %1</translation>
    </message>
    <message>
        <source>Program and arguments</source>
        <translation>Программа и аргументы</translation>
    </message>
    <message>
        <source>Model of the program</source>
        <translation>Модель для программы</translation>
    </message>
    <message>
        <source>Cleaning up</source>
        <translation>Правится текст</translation>
    </message>
    <message>
        <source>Translating</source>
        <translation>Переводится</translation>
    </message>
    <message>
        <source>Open note</source>
        <translation>Открыть заметку</translation>
    </message>
    <message>
        <source>To the clipboard</source>
        <translation>В буфер обмена</translation>
    </message>
    <message>
        <source>Into %1</source>
        <translation>В программу %1</translation>
    </message>
    <message>
        <source>Into the field where you began</source>
        <translation>В поле, с которого вы начали</translation>
    </message>
    <message>
        <source>Export library…</source>
        <translation>Экспортировать библиотеку…</translation>
    </message>
    <message>
        <source>Import library…</source>
        <translation>Импортировать библиотеку…</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Импортировать</translation>
    </message>
    <message>
        <source>Exporting the library…</source>
        <translation>Экспорт библиотеки…</translation>
    </message>
    <message>
        <source>Importing…</source>
        <translation>Импорт…</translation>
    </message>
    <message>
        <source>Library exported</source>
        <translation>Библиотека экспортирована</translation>
    </message>
    <message>
        <source>All notes of this archive are here already.</source>
        <translation>Все заметки этого архива уже здесь.</translation>
    </message>
    <message>
        <source>Export dictionary…</source>
        <translation>Экспортировать словарь…</translation>
    </message>
    <message>
        <source>Import dictionary…</source>
        <translation>Импортировать словарь…</translation>
    </message>
    <message>
        <source>Dictionary exported</source>
        <translation>Словарь экспортирован</translation>
    </message>
    <message>
        <source>This file is no table of terms.</source>
        <translation>Этот файл не является таблицей терминов.</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Никогда</translation>
    </message>
    <message>
        <source>After 30 days</source>
        <translation>Через 30 дней</translation>
    </message>
    <message>
        <source>After 90 days</source>
        <translation>Через 90 дней</translation>
    </message>
    <message>
        <source>After a year</source>
        <translation>Через год</translation>
    </message>
    <message>
        <source>Cancelled. Nothing was changed.</source>
        <translation>Отменено. Ничего не изменено.</translation>
    </message>
    <message>
        <source>This archive was made by a newer Vesko. Update the app before importing it.</source>
        <translation>Этот архив создан более новой версией Vesko. Обновите приложение перед импортом.</translation>
    </message>
    <message>
        <source>This archive unpacks to more than Vesko takes in. Nothing was changed.</source>
        <translation>В распакованном виде этот архив больше, чем принимает Vesko. Ничего не изменено.</translation>
    </message>
    <message>
        <source>This file is no library that Vesko has exported, or it is damaged. Nothing was changed.</source>
        <translation>Этот файл не является библиотекой, экспортированной из Vesko, или повреждён. Ничего не изменено.</translation>
    </message>
    <message>
        <source>There is not enough room on the disk. Your saved files were preserved.</source>
        <translation>На диске недостаточно места. Сохранённые файлы не пострадали.</translation>
    </message>
    <message>
        <source>Audio removed to save room: %1</source>
        <translation>Аудио удалено ради экономии места: %1</translation>
    </message>
    <message>
        <source>Import…</source>
        <translation>Импорт…</translation>
    </message>
    <message>
        <source>Export…</source>
        <translation>Экспорт…</translation>
    </message>
    <message>
        <source>Empty Trash…</source>
        <translation>Очистить корзину…</translation>
    </message>
    <message>
        <source>Delete all notes in the Trash permanently?</source>
        <translation>Удалить все заметки из корзины навсегда?</translation>
    </message>
    <message>
        <source>Their recordings go with them. This cannot be undone.</source>
        <translation>Их записи тоже будут удалены. Это действие нельзя отменить.</translation>
    </message>
    <message>
        <source>Empty Trash</source>
        <translation>Очистить корзину</translation>
    </message>
    <message>
        <source>Your recordings take %1.</source>
        <translation>Ваши записи занимают %1.</translation>
    </message>
    <message>
        <source>Remove recordings</source>
        <translation>Удалять записи</translation>
    </message>
    <message>
        <source>Only the audio goes: texts and their history stay, and so does each recording without a text.</source>
        <translation>Удаляется только аудио: тексты и их история остаются, как и каждая запись без текста.</translation>
    </message>
    <message>
        <source>Remove the audio of old recordings?</source>
        <translation>Удалять аудио старых записей?</translation>
    </message>
    <message>
        <source>What is older goes now, and the rest as it grows old. This cannot be undone.</source>
        <translation>Всё более старое удаляется сейчас, остальное — по мере устаревания. Это действие нельзя отменить.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Удалить</translation>
    </message>
    <message>
        <source>Delete old notes in the Trash?</source>
        <translation>Удалять старые заметки из корзины?</translation>
    </message>
    <message>
        <source>Notes imported: %1</source>
        <translation>Импортировано заметок: %1</translation>
    </message>
    <message>
        <source>Terms imported: %1</source>
        <translation>Импортировано терминов: %1</translation>
    </message>
    <message>
        <source>Not pasted</source>
        <translation>Не вставлено</translation>
    </message>
    <message>
        <source>Not transcribed</source>
        <translation>Не расшифровано</translation>
    </message>
    <message>
        <source>Copy again</source>
        <translation>Скопировать ещё раз</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Повторить</translation>
    </message>
    <message>
        <source>Show the text in notifications</source>
        <translation>Показывать текст в уведомлениях</translation>
    </message>
    <message>
        <source>Original saved. Waiting for the key from your password store (keyring), which may be asking you to unlock it.</source>
        <translation>Оригинал сохранён. Ожидается ключ из хранилища паролей (связки ключей): возможно, оно просит разблокировать его.</translation>
    </message>
    <message>
        <source>Diagnose…</source>
        <translation>Диагностика…</translation>
    </message>
    <message>
        <source>Diagnosis</source>
        <translation>Диагностика</translation>
    </message>
    <message>
        <source>What works on this computer and what doesn&apos;t. Nothing that you said or wrote is in it, and no key: it can go into a report as it is.</source>
        <translation>Что на этом компьютере работает, а что нет. Здесь нет ничего из сказанного или написанного вами и нет ключей: это можно приложить к сообщению об ошибке как есть.</translation>
    </message>
    <message>
        <source>Looking at this computer…</source>
        <translation>Проверяется этот компьютер…</translation>
    </message>
    <message>
        <source>This computer could not be looked at.</source>
        <translation>Не удалось проверить этот компьютер.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Поиск</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Ничего не найдено</translation>
    </message>
    <message>
        <source>Uses on-device speech only when this language is supported. Automatic lets the engine find out the language. If a model is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>Распознавание на компьютере работает, только если этот язык поддерживается. В режиме «Автоматически» язык определяет сам распознаватель. Если модель недоступна, звук остаётся сохранённым и можно выбрать OpenRouter.</translation>
    </message>
    <message>
        <source>Automatic leaves it to your program or server to find out the language. If it is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>В режиме «Автоматически» язык определяет ваша программа или ваш сервер. Если они недоступны, звук остаётся сохранённым и можно выбрать OpenRouter.</translation>
    </message>
    <message numerus="yes">
        <source>%1 notes selected</source>
        <translation>
            <numerusform>Выбрана %1 заметка</numerusform>
            <numerusform>Выбраны %1 заметки</numerusform>
            <numerusform>Выбрано %1 заметок</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %1 notes to Trash?</source>
        <translation>
            <numerusform>Переместить %1 заметку в корзину?</numerusform>
            <numerusform>Переместить %1 заметки в корзину?</numerusform>
            <numerusform>Переместить %1 заметок в корзину?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Delete %1 notes and their recordings permanently?</source>
        <translation>
            <numerusform>Удалить %1 заметку с записями навсегда?</numerusform>
            <numerusform>Удалить %1 заметки с записями навсегда?</numerusform>
            <numerusform>Удалить %1 заметок с записями навсегда?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 notes moved to Trash</source>
        <translation>
            <numerusform>%1 заметка перемещена в корзину</numerusform>
            <numerusform>%1 заметки перемещены в корзину</numerusform>
            <numerusform>%1 заметок перемещено в корзину</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 notes moved to another project</source>
        <translation>
            <numerusform>%1 заметка перемещена в другой проект</numerusform>
            <numerusform>%1 заметки перемещены в другой проект</numerusform>
            <numerusform>%1 заметок перемещено в другой проект</numerusform>
        </translation>
    </message>
    <message>
        <source>Note moved to another project</source>
        <translation>Заметка перемещена в другой проект</translation>
    </message>
    <message>
        <source>Move to project</source>
        <translation>Переместить в проект</translation>
    </message>
    <message>
        <source>Restore notes</source>
        <translation>Восстановить заметки</translation>
    </message>
    <message>
        <source>You can restore the notes and their recordings from Trash.</source>
        <translation>Заметки и их записи можно восстановить из корзины.</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Папка</translation>
    </message>
    <message>
        <source>Cancel transcription</source>
        <translation>Отменить расшифровку</translation>
    </message>
    <message>
        <source>Cancelled. The text as it was heard is in its note.</source>
        <translation>Отменено. Текст в том виде, как он был услышан, есть в заметке.</translation>
    </message>
    <message>
        <source>Transcription cancelled. The recording is saved.</source>
        <translation>Расшифровка отменена. Запись сохранена.</translation>
    </message>
    <message>
        <source>This note is in the Trash</source>
        <translation>Эта заметка в корзине</translation>
    </message>
    <message>
        <source>Playback speed</source>
        <translation>Скорость воспроизведения</translation>
    </message>
    <message>
        <source>Position in the recording</source>
        <translation>Место в записи</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>Показать в папке</translation>
    </message>
    <message>
        <source>Vesko is running already, on the display %1, and shows its window there.</source>
        <translation>Vesko уже работает на экране %1 и показывает там своё окно.</translation>
    </message>
    <message>
        <source>Vesko is running already, but does not answer</source>
        <translation>Vesko уже работает, но не отвечает</translation>
    </message>
    <message>
        <source>Vesko is running already, in another session, but does not answer</source>
        <translation>Vesko уже работает в другом сеансе, но не отвечает</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>No setting has these words</source>
        <translation>Нет настроек с этими словами</translation>
    </message>
    <message>
        <source>Translation and cleanup</source>
        <translation>Перевод и правка</translation>
    </message>
    <message>
        <source>Search settings</source>
        <translation>Поиск в настройках</translation>
    </message>
    <message>
        <source>Notes found: %1</source>
        <translation>Найдено заметок: %1</translation>
    </message>
    <message>
        <source>Add %1</source>
        <translation>Добавить %1</translation>
    </message>
    <message>
        <source>The desktop's settings did not take %1. Choose keys there.</source>
        <translation>Настройки рабочего стола не приняли %1. Выберите клавиши там.</translation>
    </message>
    <message>
        <source>%1 gives programs no shortcuts of their own, but Vesko can add one to its settings: see “Capture and insertion” in the settings of Vesko.</source>
        <translation>%1 не даёт программам собственных сочетаний клавиш, но Vesko может добавить сочетание в его настройки: см. «Запись и вставка» в настройках Vesko.</translation>
    </message>
    <message>
        <source>When you dictate into another program, %1 asks whether Vesko may control the keyboard: once, or each time if it does not remember your answer. Allow it in the window that opens. Vesko presses the keys that paste, and no others.</source>
        <translation>Когда вы диктуете в другую программу, %1 спрашивает, можно ли Vesko управлять клавиатурой: один раз или каждый раз, если ответ не запоминается. Разрешите это в открывшемся окне. Vesko нажимает только клавиши для вставки.</translation>
    </message>
    <message>
        <source>Copied. The desktop was still asking you whether Vesko may press the keys that paste. Paste it with Command V.</source>
        <translation>Скопировано. Рабочий стол ещё спрашивал вас, можно ли Vesko нажать клавиши для вставки. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Vesko was not allowed to press the keys that paste. Paste it with Command V.</source>
        <translation>Скопировано. Vesko не разрешили нажать клавиши для вставки. Вставьте текст клавишами Ctrl+V.</translation>
    </message>
</context>
</TS>
