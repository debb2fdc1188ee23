<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
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
</TS>
