<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- Native readers who have looked at this catalogue: none yet. -->
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>velmora::ActiveHoursCard</name>
    <message>
        <source>Active hours</source>
        <translation>Aktive Zeit</translation>
    </message>
    <message>
        <source>All day</source>
        <translation>Ganztägig</translation>
    </message>
    <message>
        <source>Overnight — reminders run through midnight.</source>
        <translation>Über Nacht – Erinnerungen laufen über Mitternacht hinweg.</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
</context>
<context>
    <name>velmora::AlertCard</name>
    <message>
        <source>Alert</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>Gentle chime</source>
        <translation>Sanfter Klang</translation>
    </message>
    <message>
        <source>Chime volume</source>
        <translation>Lautstärke des Klangs</translation>
    </message>
    <message>
        <source>Preview reminder</source>
        <translation>Erinnerung ausprobieren</translation>
    </message>
</context>
<context>
    <name>velmora::GeneralCard</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Open at login</source>
        <translation>Bei der Anmeldung öffnen</translation>
    </message>
    <message>
        <source>Pause reminders</source>
        <translation>Erinnerungen pausieren</translation>
    </message>
</context>
<context>
    <name>velmora::IntervalCard</name>
    <message>
        <source>Interval</source>
        <translation>Abstand</translation>
    </message>
    <message>
        <source>Every</source>
        <comment>every 20 minutes</comment>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Minutes between reminders</source>
        <translation>Minuten zwischen den Erinnerungen</translation>
    </message>
    <message numerus="yes">
        <source>%nm</source>
        <comment>a chip that sets the interval</comment>
        <translation>
            <numerusform>%n min</numerusform>
            <numerusform>%n min</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remind every %n minutes</source>
        <translation>
            <numerusform>Jede Minute erinnern (%n)</numerusform>
            <numerusform>Alle %n Minuten erinnern</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n min</source>
        <comment>the interval</comment>
        <translation>
            <numerusform>%n min</numerusform>
            <numerusform>%n min</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>velmora::LoginPhrases</name>
    <message>
        <source>Allow Velmora in System Settings → General → Login Items.</source>
        <translation>Velmora unter Systemeinstellungen → Allgemein → Anmeldeobjekte erlauben.</translation>
    </message>
    <message>
        <source>Open at login is set for this copy of the app.</source>
        <translation>Das Öffnen bei der Anmeldung gilt für diese Kopie des Programms.</translation>
    </message>
    <message>
        <source>Couldn&apos;t turn on open at login. Move Velmora into Applications and try again.</source>
        <translation>Das Öffnen bei der Anmeldung ließ sich nicht einschalten. Velmora in den Ordner „Programme“ bewegen und es noch einmal versuchen.</translation>
    </message>
</context>
<context>
    <name>velmora::LogindSleep</name>
    <message>
        <source>Saves the time to the next reminder</source>
        <translation>Speichert die Zeit bis zur nächsten Erinnerung</translation>
    </message>
</context>
<context>
    <name>velmora::SettingsPanel</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
</context>
<context>
    <name>velmora::SettingsView</name>
    <message>
        <source>A quiet nudge to unclench, inhale, and come back.</source>
        <translation>Ein leiser Anstoß, lockerzulassen, einzuatmen und anzukommen.</translation>
    </message>
    <message>
        <source>Velmora now</source>
        <translation>Velmora jetzt</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message numerus="yes">
        <source>Reminds you every %n minutes, all day.</source>
        <translation>
            <numerusform>Erinnert jede Minute (%n), ganztägig.</numerusform>
            <numerusform>Erinnert alle %n Minuten, ganztägig.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reminds you every %n minutes, from %1 to %2.</source>
        <translation>
            <numerusform>Erinnert jede Minute (%n), von %1 bis %2.</numerusform>
            <numerusform>Erinnert alle %n Minuten, von %1 bis %2.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 %2</source>
        <comment>the schedule, then how to handle the orb</comment>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Drag the orb to move it. Drag the corner to resize. Click it during a reminder when you&apos;re done.</source>
        <translation>Die Kugel lässt sich verschieben, an der Ecke ändert sich ihre Größe. Ein Klick beendet eine Erinnerung.</translation>
    </message>
</context>
<context>
    <name>velmora::SizeCard</name>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Orb</source>
        <translation>Kugel</translation>
    </message>
    <message>
        <source>Size of the orb</source>
        <translation>Größe der Kugel</translation>
    </message>
    <message>
        <source>Or drag the corner grip on the orb, pinch, or scroll over it.</source>
        <translation>Oder am Griff der Kugel ziehen, sie mit zwei Fingern spreizen oder über ihr scrollen.</translation>
    </message>
    <message numerus="yes">
        <source>%n pt</source>
        <comment>the side of the orb</comment>
        <translation>
            <numerusform>%n pt</numerusform>
            <numerusform>%n pt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>velmora::StatusItem</name>
    <message>
        <source>Velmora Now</source>
        <translation>Velmora jetzt</translation>
    </message>
    <message>
        <source>Settings…</source>
        <translation>Einstellungen …</translation>
    </message>
    <message>
        <source>Quit Velmora</source>
        <translation>Velmora beenden</translation>
    </message>
    <message>
        <source>Resume Reminders</source>
        <translation>Erinnerungen fortsetzen</translation>
    </message>
    <message>
        <source>Pause Reminders</source>
        <translation>Erinnerungen pausieren</translation>
    </message>
</context>
<context>
    <name>velmora::StatusPhrases</name>
    <message>
        <source>Velmora</source>
        <translation>Velmora</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>Pausiert</translation>
    </message>
    <message>
        <source>Next in %1m</source>
        <translation>Noch %1 min</translation>
    </message>
    <message>
        <source>Next in %1s</source>
        <translation>Noch %1 s</translation>
    </message>
    <message>
        <source>Resting until %1</source>
        <translation>Ruht bis %1</translation>
    </message>
</context>
<context>
    <name>velmora::WidgetView</name>
    <message>
        <source>Settings</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Resume reminders</source>
        <translation>Erinnerungen fortsetzen</translation>
    </message>
    <message>
        <source>Pause reminders</source>
        <translation>Erinnerungen pausieren</translation>
    </message>
    <message>
        <source>Resume</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausieren</translation>
    </message>
    <message>
        <source>Breathing reminder</source>
        <translation>Atemerinnerung</translation>
    </message>
    <message>
        <source>Click during a reminder when you are done. Drag to move.</source>
        <translation>Ein Klick beendet eine Erinnerung. Ziehen verschiebt die Kugel.</translation>
    </message>
    <message>
        <source>Velmora now</source>
        <translation>Velmora jetzt</translation>
    </message>
    <message>
        <source>velmora</source>
        <translation>velmora</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>relax</source>
        <translation>ruhig</translation>
    </message>
    <message>
        <source>resting</source>
        <translation>ruht</translation>
    </message>
</context>
</TS>
