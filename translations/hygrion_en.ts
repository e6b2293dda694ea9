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
    <message numerus="yes">
        <source>%n cells of the block lie beyond the edge of the construction and were left out.</source>
        <translation>
            <numerusform>%n cell of the block lies beyond the edge of the construction and was left out.</numerusform>
            <numerusform>%n cells of the block lie beyond the edge of the construction and were left out.</numerusform>
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
<context>
    <name>HygHintBar</name>
    <message numerus="yes">
        <source>%n cells have no material.</source>
        <translation>
            <numerusform>%n cell has no material.</numerusform>
            <numerusform>%n cells have no material.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cells have no material; they are open air.</source>
        <translation>
            <numerusform>%n cell has no material; it is open air.</numerusform>
            <numerusform>%n cells have no material; they are open air.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cells have a material that the project does not define.</source>
        <translation>
            <numerusform>%n cell has a material that the project does not define.</numerusform>
            <numerusform>%n cells have a material that the project does not define.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Materials lie upon one another in %n cells; the last assigned counts.</source>
        <translation>
            <numerusform>Materials lie upon one another in %n cell; the last assigned counts.</numerusform>
            <numerusform>Materials lie upon one another in %n cells; the last assigned counts.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n faces to open air without interface.</source>
        <translation>
            <numerusform>%1: %n face to open air without interface.</numerusform>
            <numerusform>%1: %n faces to open air without interface.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygLayerPanel</name>
    <message numerus="yes">
        <source>%n layers, %1 in all</source>
        <translation>
            <numerusform>%n layer, %1 in all</numerusform>
            <numerusform>%n layers, %1 in all</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygMaterialModelPage</name>
    <message numerus="yes">
        <source>The model has %n tabulated functions of its own, which are kept as they stand.</source>
        <translation>
            <numerusform>The model has a tabulated function of its own, which is kept as it stands.</numerusform>
            <numerusform>The model has %n tabulated functions of its own, which are kept as they stand.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygOutputPlaces</name>
    <message numerus="yes">
        <source>%n places in the drawing</source>
        <translation>
            <numerusform>%n place in the drawing</numerusform>
            <numerusform>%n places in the drawing</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygOutputsView</name>
    <message numerus="yes">
        <source>Remove %n outputs</source>
        <translation>
            <numerusform>Remove %n output</numerusform>
            <numerusform>Remove %n outputs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygResultTree</name>
    <message numerus="yes">
        <source>%n time(s)</source>
        <translation>
            <numerusform>%n time</numerusform>
            <numerusform>%n times</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygRunLive</name>
    <message numerus="yes">
        <source>%n files</source>
        <translation>
            <numerusform>%n file</numerusform>
            <numerusform>%n files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygSimulationChecks</name>
    <message numerus="yes">
        <source>Checks: %n error(s) would stop the run</source>
        <translation>
            <numerusform>Checks: %n error would stop the run</numerusform>
            <numerusform>Checks: %n errors would stop the run</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Checks: %n warning(s)</source>
        <translation>
            <numerusform>Checks: %n warning</numerusform>
            <numerusform>Checks: %n warnings</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygSimulationView</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and one more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n error(s) would stop the run.</source>
        <translation>
            <numerusform>One error would stop the run.</numerusform>
            <numerusform>%n errors would stop the run.</numerusform>
        </translation>
    </message>
</context>
</TS>
