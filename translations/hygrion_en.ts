<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>HygConstructionEditor</name>
    <message numerus="yes">
        <source>%n assignments went with their cells. Undo brings them back.</source>
        <translation>
            <numerusform>%n assignment went with its cells. Undo brings it back.</numerusform>
            <numerusform>%n assignments went with their cells. Undo brings them back.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Insert %n columns</source>
        <translation>
            <numerusform>Insert column</numerusform>
            <numerusform>Insert %n columns</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Insert %n rows</source>
        <translation>
            <numerusform>Insert row</numerusform>
            <numerusform>Insert %n rows</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Remove %n assignments</source>
        <translation>
            <numerusform>Remove assignment</numerusform>
            <numerusform>Remove %n assignments</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygConstructionScene</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygConstructionView</name>
    <message numerus="yes">
        <source>Selected: columns %1 to %2, rows %3 to %4, %5, %n cells</source>
        <translation>
            <numerusform>Selected: columns %1 to %2, rows %3 to %4, %5, %n cell</numerusform>
            <numerusform>Selected: columns %1 to %2, rows %3 to %4, %5, %n cells</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygGridRuler</name>
    <message numerus="yes">
        <source>%n cells</source>
        <translation>
            <numerusform>%n cell</numerusform>
            <numerusform>%n cells</numerusform>
        </translation>
    </message>
</context>
</TS>
