<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>Vesko</name>
    <message>
        <source>Vesko could not access your key in Keychain. Unlock your Mac and try again.</source>
        <translation>Vesko could not access your key in your password store (keyring). Unlock it and try again.</translation>
    </message>
    <message>
        <source>Allow OpenRouter processing in Settings, or choose Apple on-device speech. Your original stays saved.</source>
        <translation>Allow OpenRouter processing in Settings, or choose on-device speech. Your original stays saved.</translation>
    </message>
    <message>
        <source>Allow Microphone for Vesko in System Settings &gt; Privacy &amp; Security &gt; Microphone, then try again.</source>
        <translation>Allow the microphone for Vesko in your desktop's settings, then try again.</translation>
    </message>
    <message>
        <source>Allow Speech Recognition for Vesko in System Settings, or choose OpenRouter.</source>
        <translation>Allow speech recognition for Vesko in your desktop's settings, or choose OpenRouter.</translation>
    </message>
    <message>
        <source>Apple on-device</source>
        <translation>On-device</translation>
    </message>
    <message>
        <source>Vesko Plus models are not available yet. Your audio is saved. Choose Apple on-device speech or your own key.</source>
        <translation>Vesko Plus models are not available yet. Your audio is saved. Choose on-device speech or your own key.</translation>
    </message>
    <message>
        <source>Copied. Allow Accessibility for Vesko in System Settings to paste automatically.</source>
        <translation>Copied. Turn on accessibility in your desktop's settings to paste automatically.</translation>
    </message>
    <message>
        <source>Copied. No text field was focused when you started. Paste it with Command V.</source>
        <translation>Copied. No text field was focused when you started. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Vesko could not see which field was in use, so it did not paste. Paste it with Command V.</source>
        <translation>Copied. Vesko could not see which field was in use, so it did not paste. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. You started in Vesko itself, not in another program. Paste it with Command V.</source>
        <translation>Copied. You started in Vesko itself, not in another program. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. This program does not show its text fields to Vesko. Paste it with Command V or the program's own shortcut.</source>
        <translation>Copied. This program does not show its text fields to Vesko. Paste it with Ctrl+V, in a terminal with Ctrl+Shift+V, in Emacs with Ctrl+Y.</translation>
    </message>
    <message>
        <source>Copied. The paste shortcut could not be sent. Paste it with Command V.</source>
        <translation>Copied. The paste shortcut could not be sent. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. The desktop was still asking you whether Vesko may press the keys that paste. Paste it with Command V.</source>
        <translation>Copied. The desktop was still asking you whether Vesko may press the keys that paste. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Vesko was not allowed to press the keys that paste. Paste it with Command V.</source>
        <translation>Copied. Vesko was not allowed to press the keys that paste. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Paste was sent, but the field does not show the text. If it is missing, paste it with Command V.</source>
        <translation>Copied. Paste was sent, but the field does not show the text. If it is missing, paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. You moved to another field, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copied. You moved to another field, so Vesko did not paste. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. This field does not accept automatic paste. Paste it with Command V.</source>
        <translation>Copied. This field does not accept automatic paste. Paste it with Ctrl+V, in GVim with Edit &gt; Paste.</translation>
    </message>
    <message>
        <source>Copied. No active window was known when you started, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copied. No active window was known when you started, so Vesko did not paste. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. More than two minutes passed, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copied. More than two minutes passed, so Vesko did not paste. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. The session was locked, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copied. The session was locked, so Vesko did not paste. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Another program was holding the keyboard, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copied. Another program was holding the keyboard, so Vesko did not paste. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. A key was held down, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copied. A key was held down, so Vesko did not paste. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Shift, Alt or another such key was latched or locked, so Vesko did not paste. Paste it with Command V.</source>
        <translation>Copied. Shift, Alt or another such key was latched or locked, so Vesko did not paste. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Copied. Slow keys are switched on in the desktop's settings, so Vesko can't paste. Paste it with Command V.</source>
        <translation>Copied. Slow keys are switched on in the desktop's settings, so Vesko can't paste. Paste it with Ctrl+V.</translation>
    </message>
    <message>
        <source>Uses on-device speech only when this language is supported. Automatic uses your Mac's language. If a model is unavailable, the audio stays saved and you can choose OpenRouter.</source>
        <translation>Uses on-device speech only when this language is supported. Automatic uses your computer's language. If a model is unavailable, the audio stays saved and you can choose OpenRouter.</translation>
    </message>
    <message>
        <source>Recordings stop after 5 minutes in this version. Original audio stays on this Mac.</source>
        <translation>Recordings stop after 5 minutes in this version. Original audio stays on this computer.</translation>
    </message>
    <message>
        <source>Saved in Keychain</source>
        <translation>Saved in your keyring</translation>
    </message>
    <message>
        <source>Your key belongs to this macOS account. Vesko does not share it with other users or top up your balance.</source>
        <translation>Your key belongs to your user account on this computer. Vesko does not share it with other users or top up your balance.</translation>
    </message>
    <message>
        <source>Key saved in Keychain</source>
        <translation>Key saved in your keyring</translation>
    </message>
    <message>
        <source>Adds a separate paid request. With Apple speech, only the transcript is sent for cleanup. The original transcript stays available.</source>
        <translation>Adds a separate paid request. With on-device speech, only the transcript is sent for cleanup. The original transcript stays available.</translation>
    </message>
    <message>
        <source>Also use Fn / Globe to start and stop</source>
        <translation>Also use a single key to start and stop</translation>
    </message>
    <message>
        <source>Fn starts recording when pressed. Tap to keep recording, or hold for 0.35 seconds and release to finish. A second tap stops a latched recording. Fn combinations do not send audio for transcription. Set Fn/Globe to Do Nothing in System Settings &gt; Keyboard if macOS opens its own dictation or emoji picker.</source>
        <translation>The key starts recording when pressed. Tap to keep recording, or hold for 0.35 seconds and release to finish. A second tap stops a latched recording. Combinations with other keys do not send audio for transcription. If your desktop does something of its own with this key, turn that off in its keyboard settings or choose another key.</translation>
    </message>
    <message>
        <source>The Vesko icon is hidden behind the camera area of the menu bar. Hold Command and drag menu bar icons to make room, or right-click the floating button for the same menu.</source>
        <translation>This desktop shows no status icons. Right-click the floating button for the same menu.</translation>
    </message>
    <message>
        <source>Microphone is used only while Recording. Accessibility checks the paste destination and, when learning is enabled, its inserted fragment. Input Monitoring observes Fn and a Return send signal; keystrokes are not saved.</source>
        <translation>Microphone is used only while Recording. Accessibility checks the paste destination and, when learning is enabled, its inserted fragment; Vesko switches it on when it starts, and it stays on. Vesko watches the keyboard for its own key and a Return send signal; keystrokes are not saved.</translation>
    </message>
    <message>
        <source>Open Privacy &amp; Security</source>
        <translation>Open privacy settings</translation>
    </message>
    <message>
        <source>Launch at login could not be changed. Check Login Items in System Settings.</source>
        <translation>Launch at login could not be changed. Check the startup applications in your desktop's settings.</translation>
    </message>
    <message>
        <source>macOS approval is needed in Login Items.</source>
        <translation>Your desktop must allow Vesko in its startup applications.</translation>
    </message>
    <message>
        <source>Open Login Items</source>
        <translation>Open startup applications</translation>
    </message>
    <message>
        <source>You are offline. Your notes stay on this Mac. Reconnect to sign in.</source>
        <translation>You are offline. Your notes stay on this computer. Reconnect to sign in.</translation>
    </message>
    <message>
        <source>Signed out. Your notes stay on this Mac.</source>
        <translation>Signed out. Your notes stay on this computer.</translation>
    </message>
    <message>
        <source>Your Vesko account was deleted. Notes and recordings on this Mac were kept.</source>
        <translation>Your Vesko account was deleted. Notes and recordings on this computer were kept.</translation>
    </message>
    <message>
        <source>Your account is removed from Vesko's service. Notes and recordings on this Mac are kept.</source>
        <translation>Your account is removed from Vesko's service. Notes and recordings on this computer are kept.</translation>
    </message>
    <message>
        <source>Opens Google in a private sign-in window</source>
        <translation>Opens Google in your browser</translation>
    </message>
    <message>
        <source>Record your voice or start a text note. Your originals stay on this Mac.</source>
        <translation>Record your voice or start a text note. Your originals stay on this computer.</translation>
    </message>
    <message>
        <source>Saved on this Mac</source>
        <translation>Saved on this computer</translation>
    </message>
    <message>
        <source>Copy note (⌘C)</source>
        <translation>Copy note (Ctrl+C)</translation>
    </message>
    <message>
        <source>Release Fn to finish</source>
        <translation>Release the key to finish</translation>
    </message>
    <message>
        <source>Release Fn to finish recording</source>
        <translation>Release the key to finish recording</translation>
    </message>
    <message>
        <source>Fn combination used. Audio saved without transcription.</source>
        <translation>Key combination used. Audio saved without transcription.</translation>
    </message>
    <message>
        <source>Corrections stay on this Mac. Original transcripts are kept.</source>
        <translation>Corrections stay on this computer. Original transcripts are kept.</translation>
    </message>
    <message>
        <source>Apple on-device transcription.</source>
        <translation>Transcription on this computer, by an installed model.</translation>
    </message>
    <message>
        <source>Input Monitoring</source>
        <translation>Keyboard</translation>
    </message>
    <message>
        <source>Notices the Fn key. Keystrokes are not saved.</source>
        <translation>Notices the dictation key. Keystrokes are not saved.</translation>
    </message>
    <message>
        <source>Allow Vesko in System Settings &gt; Privacy &amp; Security &gt; Microphone.</source>
        <translation>No microphone could be opened. Connect one, or choose and unmute it in your desktop's sound settings.</translation>
    </message>
    <message>
        <source>Enable Vesko in Accessibility. If it is missing, add Vesko.app from your Applications folder.</source>
        <translation>Accessibility has been turned on, and it stays on. Programs that were already open may have to be started again before Vesko can paste into them.</translation>
    </message>
    <message>
        <source>Enable Vesko in Input Monitoring. If it is missing, use the + button and select Vesko.app. If macOS asks, choose Quit &amp; Reopen. Command Shift Space remains available.</source>
        <translation>Vesko watches the keyboard where the desktop lets programs do so. Choose another dictation key if your desktop uses this one. The shortcut remains available.</translation>
    </message>
    <message>
        <source>Every original recording stays on this Mac. Retry any transcription.</source>
        <translation>Every original recording stays on this computer. Retry any transcription.</translation>
    </message>
    <message>
        <source>Hold Fn and speak</source>
        <translation>Hold the key and speak</translation>
    </message>
    <message>
        <source>Tap Fn for longer thoughts</source>
        <translation>Tap the key for longer thoughts</translation>
    </message>
    <message>
        <source>Recording keeps going hands-free. Tap Fn again to finish.</source>
        <translation>Recording keeps going hands-free. Tap the key again to finish.</translation>
    </message>
    <message>
        <source>Works the same way when Fn is busy.</source>
        <translation>Works the same way when the key is busy.</translation>
    </message>
    <message>
        <source>macOS asks once for each. You can change them later in Settings.</source>
        <translation>What Vesko needs to work. You can look at it again later in Settings.</translation>
    </message>
    <message>
        <source>Notes and recordings stay on this Mac.</source>
        <translation>Notes and recordings stay on this computer.</translation>
    </message>
</context>
</TS>
