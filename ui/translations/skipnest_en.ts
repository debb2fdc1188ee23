<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>Moments</name>
    <message numerus="yes">
        <source>%n hours saved! 🎉</source>
        <translation>
            <numerusform>%n hour saved! 🎉</numerusform>
            <numerusform>%n hours saved! 🎉</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>Statistics</name>
    <message numerus="yes">
        <source>%n-day streak 🔥</source>
        <translation>
            <numerusform>%n-day streak 🔥</numerusform>
            <numerusform>%n-day streak 🔥</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>jumps this week</source>
        <translation>
            <numerusform>jump this week</numerusform>
            <numerusform>jumps this week</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln jumps this week</source>
        <translation>
            <numerusform>%Ln jump this week</numerusform>
            <numerusform>%Ln jumps this week</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days, keep it alive today</source>
        <translation>
            <numerusform>%n day, keep it alive today</numerusform>
            <numerusform>%n days, keep it alive today</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SwitcherBar</name>
    <message numerus="yes">
        <source>%n matches</source>
        <translation>
            <numerusform>%n match</numerusform>
            <numerusform>%n matches</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n windows</source>
        <translation>
            <numerusform>%n window</numerusform>
            <numerusform>%n windows</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n tabs</source>
        <translation>
            <numerusform>%n tab</numerusform>
            <numerusform>%n tabs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>WindowCard</name>
    <message numerus="yes">
        <source>%n tabs</source>
        <translation>
            <numerusform>%n tab</numerusform>
            <numerusform>%n tabs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ChallengeRows</name>
    <message numerus="yes">
        <source>%n jumps, %1, %2</source>
        <extracomment>%1 and %2 are the texts for minutes and for days in a row.</extracomment>
        <translation>
            <numerusform>%n jump, %1, %2</numerusform>
            <numerusform>%n jumps, %1, %2</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n minutes saved</source>
        <translation>
            <numerusform>%n minute saved</numerusform>
            <numerusform>%n minutes saved</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days in a row</source>
        <translation>
            <numerusform>%n day in a row</numerusform>
            <numerusform>%n days in a row</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ChallengeScreenModel</name>
    <message numerus="yes">
        <source>A name is 1 to %n characters that can be seen.</source>
        <translation>
            <numerusform>A name is %n character that can be seen.</numerusform>
            <numerusform>A name is 1 to %n characters that can be seen.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n places up this week</source>
        <translation>
            <numerusform>%n place up this week</numerusform>
            <numerusform>%n places up this week</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n places down this week</source>
        <translation>
            <numerusform>%n place down this week</numerusform>
            <numerusform>%n places down this week</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ExportModel</name>
    <message numerus="yes">
        <source>%n shortcuts and all settings</source>
        <translation>
            <numerusform>%n shortcut and all settings</numerusform>
            <numerusform>%n shortcuts and all settings</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ImportModel</name>
    <message numerus="yes">
        <source>%n new</source>
        <translation>
            <numerusform>%n new</numerusform>
            <numerusform>%n new</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n updated</source>
        <translation>
            <numerusform>%n updated</numerusform>
            <numerusform>%n updated</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unchanged</source>
        <translation>
            <numerusform>%n unchanged</numerusform>
            <numerusform>%n unchanged</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n conflicts</source>
        <translation>
            <numerusform>%n conflict</numerusform>
            <numerusform>%n conflicts</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n applications to confirm</source>
        <translation>
            <numerusform>%n application to confirm</numerusform>
            <numerusform>%n applications to confirm</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Imported %n shortcuts: </source>
        <translation>
            <numerusform>Imported %n shortcut: </numerusform>
            <numerusform>Imported %n shortcuts: </numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::KeyLedgerRows</name>
    <message numerus="yes">
        <source>%n of Skipnest</source>
        <translation>
            <numerusform>%n of Skipnest</numerusform>
            <numerusform>%n of Skipnest</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n refused</source>
        <translation>
            <numerusform>%n refused</numerusform>
            <numerusform>%n refused</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of the desktop</source>
        <translation>
            <numerusform>%n of the desktop</numerusform>
            <numerusform>%n of the desktop</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::ListBanner</name>
    <message numerus="yes">
        <source>%n of %1 keys are not bound</source>
        <translation>
            <numerusform>%n of %1 keys is not bound</numerusform>
            <numerusform>%n of %1 keys are not bound</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::StatisticsCardModel</name>
    <message numerus="yes">
        <source>days, keep it alive today</source>
        <translation>
            <numerusform>day, keep it alive today</numerusform>
            <numerusform>days, keep it alive today</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>days in a row</source>
        <translation>
            <numerusform>day in a row</numerusform>
            <numerusform>days in a row</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln jumps in all</source>
        <translation>
            <numerusform>%Ln jump in all</numerusform>
            <numerusform>%Ln jumps in all</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln by key</source>
        <translation>
            <numerusform>%Ln by key</numerusform>
            <numerusform>%Ln by key</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln from the window switcher</source>
        <translation>
            <numerusform>%Ln from the window switcher</numerusform>
            <numerusform>%Ln from the window switcher</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln by voice</source>
        <translation>
            <numerusform>%Ln by voice</numerusform>
            <numerusform>%Ln by voice</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln places up this week</source>
        <translation>
            <numerusform>%Ln place up this week</numerusform>
            <numerusform>%Ln places up this week</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln places down this week</source>
        <translation>
            <numerusform>%Ln place down this week</numerusform>
            <numerusform>%Ln places down this week</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>skipnest::ui::WeekBars</name>
    <message numerus="yes">
        <source>%Ln jumps</source>
        <translation>
            <numerusform>%Ln jump</numerusform>
            <numerusform>%Ln jumps</numerusform>
        </translation>
    </message>
</context>
</TS>
