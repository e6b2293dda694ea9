<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>HygAboutDialog</name>
    <message>
        <source>About %1</source>
        <translation>Über %1</translation>
    </message>
    <message>
        <source>A workbench for heat and moisture in building components.</source>
        <translation>Eine Werkbank für Wärme und Feuchte in Bauteilen.</translation>
    </message>
    <message>
        <source>Free software under the Apache License, version 2.0.</source>
        <translation>Freie Software unter der Apache-Lizenz, Version 2.0.</translation>
    </message>
    <message>
        <source>It stands on these libraries:</source>
        <translation>Sie baut auf diesen Bibliotheken auf:</translation>
    </message>
    <message>
        <source>&amp;Copy versions</source>
        <translation>Versionen &amp;kopieren</translation>
    </message>
</context>
<context>
    <name>HygAnimation</name>
    <message>
        <source>There are no time points.</source>
        <translation>Es gibt keine Zeitpunkte.</translation>
    </message>
    <message>
        <source>Cannot write the picture &apos;%1&apos;.</source>
        <translation>Das Bild „%1“ kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The film could not be made: %1</source>
        <translation>Der Film konnte nicht erzeugt werden: %1</translation>
    </message>
</context>
<context>
    <name>HygAssignPanel</name>
    <message>
        <source>Materials</source>
        <translation>Materialien</translation>
    </message>
    <message>
        <source>Interfaces</source>
        <translation>Oberflächen</translation>
    </message>
    <message>
        <source>Contact conditions</source>
        <translation>Kontaktbedingungen</translation>
    </message>
    <message>
        <source>Field conditions</source>
        <translation>Feldbedingungen</translation>
    </message>
    <message>
        <source>Initial conditions</source>
        <translation>Anfangsbedingungen</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Ausgaben</translation>
    </message>
    <message>
        <source>Search materials and definitions</source>
        <translation>Materialien und Definitionen suchen</translation>
    </message>
    <message>
        <source>What can be assigned</source>
        <translation>Was zugewiesen werden kann</translation>
    </message>
    <message>
        <source>Double-click or Enter assigns to the selection, Delete takes off; entries can be dragged onto the drawing</source>
        <translation>Doppelklick oder Eingabe weist der Auswahl zu, Entf nimmt ab; Einträge können auf die Zeichnung gezogen werden</translation>
    </message>
    <message>
        <source>Side:</source>
        <translation>Seite:</translation>
    </message>
    <message>
        <source>Assign</source>
        <translation>Zuweisen</translation>
    </message>
    <message>
        <source>Take off</source>
        <translation>Abnehmen</translation>
    </message>
    <message>
        <source>Assign the chosen entry to the selected cells or to their side</source>
        <translation>Den gewählten Eintrag den ausgewählten Zellen oder ihrer Seite zuweisen</translation>
    </message>
    <message>
        <source>Take the chosen entry off the selected cells or off their side</source>
        <translation>Den gewählten Eintrag von den ausgewählten Zellen oder ihrer Seite abnehmen</translation>
    </message>
    <message>
        <source>Material database</source>
        <translation>Materialdatenbank</translation>
    </message>
    <message>
        <source>%1. It is added to the project when it is assigned.</source>
        <translation>%1. Es kommt in das Projekt, wenn es zugewiesen wird.</translation>
    </message>
    <message>
        <source>Fits the selection. ✓ is assigned to all of it, – to a part.</source>
        <translation>Passt zur Auswahl. ✓ ist ihr ganz zugewiesen, – zum Teil.</translation>
    </message>
    <message>
        <source>Select cells in the drawing, or drag an entry onto it.</source>
        <translation>Wählen Sie Zellen in der Zeichnung aus oder ziehen Sie einen Eintrag darauf.</translation>
    </message>
</context>
<context>
    <name>HygAssignmentModel</name>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Definition</source>
        <translation>Definition</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>Ort</translation>
    </message>
    <message>
        <source>From column</source>
        <translation>Von Spalte</translation>
    </message>
    <message>
        <source>to column</source>
        <translation>bis Spalte</translation>
    </message>
    <message>
        <source>From row</source>
        <translation>Von Zeile</translation>
    </message>
    <message>
        <source>to row</source>
        <translation>bis Zeile</translation>
    </message>
    <message>
        <source>From plane</source>
        <translation>Von Ebene</translation>
    </message>
    <message>
        <source>to plane</source>
        <translation>bis Ebene</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>%1
Double-click to choose another file.</source>
        <translation>%1
Doppelklick wählt eine andere Datei.</translation>
    </message>
</context>
<context>
    <name>HygAssignmentPanel</name>
    <message>
        <source>Search assignments</source>
        <translation>Zuweisungen suchen</translation>
    </message>
    <message>
        <source>Assignments</source>
        <translation>Zuweisungen</translation>
    </message>
    <message>
        <source>Select the cells in the drawing and go there (Enter)</source>
        <translation>Die Zellen in der Zeichnung auswählen und dorthin gehen (Eingabe)</translation>
    </message>
    <message>
        <source>Find in the drawing</source>
        <translation>In der Zeichnung finden</translation>
    </message>
    <message>
        <source>Remove the chosen assignments (Delete)</source>
        <translation>Die gewählten Zuweisungen entfernen (Entf)</translation>
    </message>
    <message>
        <source>Remove assignments</source>
        <translation>Zuweisungen entfernen</translation>
    </message>
</context>
<context>
    <name>HygCommandSearch</name>
    <message>
        <source>Find a command</source>
        <translation>Befehl suchen</translation>
    </message>
    <message>
        <source>Command, material or definition…</source>
        <translation>Befehl, Material oder Definition…</translation>
    </message>
    <message>
        <source>Some letters of its words; arrow keys choose, Enter runs it</source>
        <translation>Einige Buchstaben der Wörter; Pfeiltasten wählen, Eingabe führt aus</translation>
    </message>
    <message>
        <source>Commands found</source>
        <translation>Gefundene Befehle</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>Nichts gefunden</translation>
    </message>
</context>
<context>
    <name>HygConstructionEditor</name>
    <message numerus="yes">
        <source>%n assignments went with their cells. Undo brings them back.</source>
        <translation>
            <numerusform>%n Zuweisung ging mit ihren Zellen. Rückgängig holt sie zurück.</numerusform>
            <numerusform>%n Zuweisungen gingen mit ihren Zellen. Rückgängig holt sie zurück.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Insert %n columns</source>
        <translation>
            <numerusform>Spalte einfügen</numerusform>
            <numerusform>%n Spalten einfügen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Insert %n rows</source>
        <translation>
            <numerusform>Zeile einfügen</numerusform>
            <numerusform>%n Zeilen einfügen</numerusform>
        </translation>
    </message>
    <message>
        <source>Split cells</source>
        <translation>Zellen teilen</translation>
    </message>
    <message>
        <source>Merge cells</source>
        <translation>Zellen verbinden</translation>
    </message>
    <message>
        <source>Delete columns</source>
        <translation>Spalten löschen</translation>
    </message>
    <message>
        <source>Delete rows</source>
        <translation>Zeilen löschen</translation>
    </message>
    <message>
        <source>Mirror cells</source>
        <translation>Zellen spiegeln</translation>
    </message>
    <message>
        <source>Move cells</source>
        <translation>Zellen verschieben</translation>
    </message>
    <message>
        <source>Change width</source>
        <translation>Breite ändern</translation>
    </message>
    <message>
        <source>Change thickness</source>
        <translation>Dicke ändern</translation>
    </message>
    <message>
        <source>Add layer</source>
        <translation>Schicht hinzufügen</translation>
    </message>
    <message>
        <source>Add layer &apos;%1&apos;</source>
        <translation>Schicht „%1“ hinzufügen</translation>
    </message>
    <message>
        <source>Add material</source>
        <translation>Material hinzufügen</translation>
    </message>
    <message>
        <source>Automatic discretization</source>
        <translation>Automatische Diskretisierung</translation>
    </message>
    <message>
        <source>Assign &apos;%1&apos;</source>
        <translation>„%1“ zuweisen</translation>
    </message>
    <message>
        <source>Take &apos;%1&apos; off</source>
        <translation>„%1“ abnehmen</translation>
    </message>
    <message numerus="yes">
        <source>Remove %n assignments</source>
        <translation>
            <numerusform>Zuweisung entfernen</numerusform>
            <numerusform>%n Zuweisungen entfernen</numerusform>
        </translation>
    </message>
    <message>
        <source>Change assignment</source>
        <translation>Zuweisung ändern</translation>
    </message>
    <message>
        <source>Clear cells</source>
        <translation>Zellen leeren</translation>
    </message>
    <message>
        <source>Paste cells</source>
        <translation>Zellen einfügen</translation>
    </message>
    <message>
        <source>Resolve overlaps</source>
        <translation>Überlappungen auflösen</translation>
    </message>
    <message>
        <source>Outside</source>
        <translation>Außen</translation>
    </message>
    <message>
        <source>Inside</source>
        <translation>Innen</translation>
    </message>
    <message>
        <source>Add outdoor climate</source>
        <translation>Außenklima hinzufügen</translation>
    </message>
    <message>
        <source>Add indoor climate</source>
        <translation>Innenklima hinzufügen</translation>
    </message>
    <message>
        <source>Add interface</source>
        <translation>Oberfläche hinzufügen</translation>
    </message>
    <message>
        <source>Start a 2D detail</source>
        <translation>2D-Detail beginnen</translation>
    </message>
    <message>
        <source>Remove layer</source>
        <translation>Schicht entfernen</translation>
    </message>
    <message numerus="yes">
        <source>%n cells of the block lie beyond the edge of the construction and were left out.</source>
        <translation>
            <numerusform>%n Zelle des Blocks liegt jenseits des Randes der Konstruktion und wurde ausgelassen.</numerusform>
            <numerusform>%n Zellen des Blocks liegen jenseits des Randes der Konstruktion und wurden ausgelassen.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygConstructionScene</name>
    <message>
        <source>Material</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>Oberfläche</translation>
    </message>
    <message>
        <source>Initial condition</source>
        <translation>Anfangsbedingung</translation>
    </message>
    <message>
        <source>Field condition</source>
        <translation>Feldbedingung</translation>
    </message>
    <message>
        <source>Contact condition</source>
        <translation>Kontaktbedingung</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Zellen</translation>
    </message>
    <message>
        <source>Left side</source>
        <translation>Linke Seite</translation>
    </message>
    <message>
        <source>Right side</source>
        <translation>Rechte Seite</translation>
    </message>
    <message>
        <source>Bottom side</source>
        <translation>Untere Seite</translation>
    </message>
    <message>
        <source>Top side</source>
        <translation>Obere Seite</translation>
    </message>
    <message>
        <source>Back side</source>
        <translation>Hintere Seite</translation>
    </message>
    <message>
        <source>Front side</source>
        <translation>Vordere Seite</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Lage</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keines</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und %n weitere</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Column %1, row %2</source>
        <translation>Spalte %1, Zeile %2</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
</context>
<context>
    <name>HygConstructionStart</name>
    <message>
        <source>Draw your construction</source>
        <translation>Konstruktion zeichnen</translation>
    </message>
    <message>
        <source>A wall or roof is a stack of layers, from the outside on the left to the inside on the right.</source>
        <translation>Eine Wand oder ein Dach ist ein Stapel von Schichten, von außen (links) nach innen (rechts).</translation>
    </message>
    <message>
        <source>Add the first layer ...</source>
        <translation>Erste Schicht hinzufügen ...</translation>
    </message>
    <message>
        <source>Choose a material and its thickness; the cells are made for you</source>
        <translation>Material und Dicke wählen; die Zellen entstehen von selbst</translation>
    </message>
    <message>
        <source>Draw a 2D detail</source>
        <translation>2D-Detail zeichnen</translation>
    </message>
    <message>
        <source>Start with a grid of 6 x 6 cells of 100 mm, for corners, reveals and slab edges</source>
        <translation>Mit einem Gitter aus 6 x 6 Zellen von 100 mm beginnen, für Ecken, Laibungen und Deckenränder</translation>
    </message>
    <message>
        <source>Everything you do here can be undone.</source>
        <translation>Alles, was Sie hier tun, lässt sich rückgängig machen.</translation>
    </message>
</context>
<context>
    <name>HygConstructionView</name>
    <message>
        <source>Materials</source>
        <translation>Materialien</translation>
    </message>
    <message>
        <source>Interfaces</source>
        <translation>Oberflächen</translation>
    </message>
    <message>
        <source>Contacts</source>
        <translation>Kontakte</translation>
    </message>
    <message>
        <source>Field conditions</source>
        <translation>Feldbedingungen</translation>
    </message>
    <message>
        <source>Initial conditions</source>
        <translation>Anfangsbedingungen</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Ausgaben</translation>
    </message>
    <message>
        <source>Names of the materials</source>
        <translation>Namen der Materialien</translation>
    </message>
    <message>
        <source>Interfaces: coloured lines along the surfaces that face a climate</source>
        <translation>Oberflächen: farbige Linien entlang der Flächen, die an ein Klima grenzen</translation>
    </message>
    <message>
        <source>Contact conditions: dashed lines between cells, such as foils</source>
        <translation>Kontaktbedingungen: gestrichelte Linien zwischen Zellen, zum Beispiel Folien</translation>
    </message>
    <message>
        <source>Field conditions: sources and sinks inside the construction</source>
        <translation>Feldbedingungen: Quellen und Senken in der Konstruktion</translation>
    </message>
    <message>
        <source>Initial conditions: the state in which cells start</source>
        <translation>Anfangsbedingungen: der Zustand, in dem Zellen beginnen</translation>
    </message>
    <message>
        <source>Outputs: the cells whose values are written</source>
        <translation>Ausgaben: die Zellen, deren Werte geschrieben werden</translation>
    </message>
    <message>
        <source>Insert</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Split</source>
        <translation>Teilen</translation>
    </message>
    <message>
        <source>Merge</source>
        <translation>Verbinden</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Mirror</source>
        <translation>Spiegeln</translation>
    </message>
    <message>
        <source>Add layer ...</source>
        <translation>Schicht hinzufügen ...</translation>
    </message>
    <message>
        <source>Add a layer of a material and thickness</source>
        <translation>Eine Schicht aus Material und Dicke hinzufügen</translation>
    </message>
    <message>
        <source>Insert column to the left</source>
        <translation>Spalte links einfügen</translation>
    </message>
    <message>
        <source>New columns like the one on their left, as many as are selected</source>
        <translation>Neue Spalten wie die links von ihnen, so viele wie ausgewählt sind</translation>
    </message>
    <message>
        <source>Insert column to the right</source>
        <translation>Spalte rechts einfügen</translation>
    </message>
    <message>
        <source>Insert row above</source>
        <translation>Zeile darüber einfügen</translation>
    </message>
    <message>
        <source>New rows like the one below them, as many as are selected</source>
        <translation>Neue Zeilen wie die unter ihnen, so viele wie ausgewählt sind</translation>
    </message>
    <message>
        <source>Insert row below</source>
        <translation>Zeile darunter einfügen</translation>
    </message>
    <message>
        <source>Split columns</source>
        <translation>Spalten teilen</translation>
    </message>
    <message>
        <source>Divide each selected column in two</source>
        <translation>Jede ausgewählte Spalte halbieren</translation>
    </message>
    <message>
        <source>Split rows</source>
        <translation>Zeilen teilen</translation>
    </message>
    <message>
        <source>Divide each selected row in two</source>
        <translation>Jede ausgewählte Zeile halbieren</translation>
    </message>
    <message>
        <source>Merge columns</source>
        <translation>Spalten verbinden</translation>
    </message>
    <message>
        <source>Make one column of the selected ones; the widest part decides on its material</source>
        <translation>Aus den ausgewählten Spalten eine machen; der breiteste Teil bestimmt das Material</translation>
    </message>
    <message>
        <source>Merge rows</source>
        <translation>Zeilen verbinden</translation>
    </message>
    <message>
        <source>Make one row of the selected ones; the highest part decides on its material</source>
        <translation>Aus den ausgewählten Zeilen eine machen; der höchste Teil bestimmt das Material</translation>
    </message>
    <message>
        <source>Delete columns</source>
        <translation>Spalten löschen</translation>
    </message>
    <message>
        <source>Take the selected columns out; the construction becomes narrower</source>
        <translation>Die ausgewählten Spalten herausnehmen; die Konstruktion wird schmaler</translation>
    </message>
    <message>
        <source>Delete rows</source>
        <translation>Zeilen löschen</translation>
    </message>
    <message>
        <source>Take the selected rows out; the construction becomes lower</source>
        <translation>Die ausgewählten Zeilen herausnehmen; die Konstruktion wird niedriger</translation>
    </message>
    <message>
        <source>Mirror left and right</source>
        <translation>Links und rechts spiegeln</translation>
    </message>
    <message>
        <source>Reverse the order of the selected columns, of all without a selection</source>
        <translation>Reihenfolge der ausgewählten Spalten umkehren, ohne Auswahl die aller</translation>
    </message>
    <message>
        <source>Mirror top and bottom</source>
        <translation>Oben und unten spiegeln</translation>
    </message>
    <message>
        <source>Reverse the order of the selected rows, of all without a selection</source>
        <translation>Reihenfolge der ausgewählten Zeilen umkehren, ohne Auswahl die aller</translation>
    </message>
    <message>
        <source>Column width ...</source>
        <translation>Spaltenbreite ...</translation>
    </message>
    <message>
        <source>Set the width of the selected columns (usually 0.1 mm to 1 m)</source>
        <translation>Breite der ausgewählten Spalten festlegen (meist 0,1 mm bis 1 m)</translation>
    </message>
    <message>
        <source>Row height ...</source>
        <translation>Zeilenhöhe ...</translation>
    </message>
    <message>
        <source>Set the height of the selected rows (usually 0.1 mm to 1 m)</source>
        <translation>Höhe der ausgewählten Zeilen festlegen (meist 0,1 mm bis 1 m)</translation>
    </message>
    <message>
        <source>Automatic discretization ...</source>
        <translation>Automatische Diskretisierung ...</translation>
    </message>
    <message>
        <source>Divide layers into cells, fine where temperature and moisture change quickly</source>
        <translation>Schichten in Zellen teilen, fein, wo Temperatur und Feuchte sich schnell ändern</translation>
    </message>
    <message>
        <source>Copy cells</source>
        <translation>Zellen kopieren</translation>
    </message>
    <message>
        <source>Copy what is assigned to the selected cells</source>
        <translation>Kopieren, was den ausgewählten Zellen zugewiesen ist</translation>
    </message>
    <message>
        <source>Cut cells</source>
        <translation>Zellen ausschneiden</translation>
    </message>
    <message>
        <source>Copy what is assigned to the selected cells and take it off them</source>
        <translation>Kopieren, was den ausgewählten Zellen zugewiesen ist, und es von ihnen abnehmen</translation>
    </message>
    <message>
        <source>Paste cells</source>
        <translation>Zellen einfügen</translation>
    </message>
    <message>
        <source>Assign what was copied, from the lower left selected cell on</source>
        <translation>Das Kopierte zuweisen, von der ausgewählten Zelle links unten an</translation>
    </message>
    <message>
        <source>Clear cells</source>
        <translation>Zellen leeren</translation>
    </message>
    <message>
        <source>Take everything off the selected cells</source>
        <translation>Alles von den ausgewählten Zellen abnehmen</translation>
    </message>
    <message>
        <source>Select all cells</source>
        <translation>Alle Zellen auswählen</translation>
    </message>
    <message>
        <source>Select the whole construction</source>
        <translation>Die ganze Konstruktion auswählen</translation>
    </message>
    <message>
        <source>Select cells of this material</source>
        <translation>Zellen dieses Materials auswählen</translation>
    </message>
    <message>
        <source>Select all cells of the material under the last selected cell; in the drawing the key M does the same</source>
        <translation>Alle Zellen mit dem Material der zuletzt ausgewählten auswählen; in der Zeichnung tut das auch die Taste M</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>Alles zeigen</translation>
    </message>
    <message>
        <source>Fit the construction into the window</source>
        <translation>Die Konstruktion in das Fenster einpassen</translation>
    </message>
    <message>
        <source>Show selection</source>
        <translation>Auswahl zeigen</translation>
    </message>
    <message>
        <source>Zoom to the selected cells</source>
        <translation>Auf die ausgewählten Zellen vergrößern</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom in; the mouse wheel zooms at the pointer</source>
        <translation>Vergrößern; das Mausrad vergrößert am Zeiger</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Zoom out; the mouse wheel zooms at the pointer</source>
        <translation>Verkleinern; das Mausrad verkleinert am Zeiger</translation>
    </message>
    <message>
        <source>Equal cells</source>
        <translation>Gleiche Zellen</translation>
    </message>
    <message>
        <source>Draw all cells alike, so that thin ones can be reached; otherwise to scale</source>
        <translation>Alle Zellen gleich zeichnen, damit dünne erreichbar sind; sonst maßstäblich</translation>
    </message>
    <message>
        <source>Grid lines</source>
        <translation>Gitterlinien</translation>
    </message>
    <message>
        <source>Draw the borders of the cells</source>
        <translation>Die Ränder der Zellen zeichnen</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <comment>tool tip and keys</comment>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Drawing of the construction</source>
        <translation>Zeichnung der Konstruktion</translation>
    </message>
    <message>
        <source>Stack plane</source>
        <translation>Ebene</translation>
    </message>
    <message>
        <source>The plane that is shown; Page Up and Page Down go to the next ones</source>
        <translation>Die gezeigte Ebene; Bild auf und Bild ab gehen zu den nächsten</translation>
    </message>
    <message>
        <source>Construction: %1, %2 x %3 cells</source>
        <translation>Konstruktion: %1, %2 x %3 Zellen</translation>
    </message>
    <message numerus="yes">
        <source>Selected: columns %1 to %2, rows %3 to %4, %5, %n cells</source>
        <translation>
            <numerusform>Ausgewählt: Spalten %1 bis %2, Zeilen %3 bis %4, %5, %n Zelle</numerusform>
            <numerusform>Ausgewählt: Spalten %1 bis %2, Zeilen %3 bis %4, %5, %n Zellen</numerusform>
        </translation>
    </message>
    <message>
        <source>Plane %1 of %2</source>
        <translation>Ebene %1 von %2</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Width of the selected cells together; they keep their proportions. Usually 0.1 mm to 1 m.</source>
        <translation>Breite der ausgewählten Zellen zusammen; sie behalten ihre Verhältnisse. Meist 0,1 mm bis 1 m.</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Schichten</translation>
    </message>
    <message>
        <source>Assign</source>
        <translation>Zuweisen</translation>
    </message>
    <message>
        <source>Assignments</source>
        <translation>Zuweisungen</translation>
    </message>
    <message>
        <source>Outside, on the left of &apos;%1&apos;</source>
        <translation>Außen, links von „%1“</translation>
    </message>
    <message>
        <source>On the left of &apos;%1&apos;</source>
        <translation>Links von „%1“</translation>
    </message>
    <message>
        <source>First layer</source>
        <translation>Erste Schicht</translation>
    </message>
    <message>
        <source>Inside, on the right</source>
        <translation>Innen, rechts</translation>
    </message>
    <message>
        <source>Automatic discretization</source>
        <translation>Automatische Diskretisierung</translation>
    </message>
    <message>
        <source>Turned about the left edge</source>
        <translation>Gedreht um den linken Rand</translation>
    </message>
</context>
<context>
    <name>HygCoreMessages</name>
    <message>
        <source>%1 of %2 cells have no material.</source>
        <translation>%1 von %2 Zellen haben kein Material.</translation>
    </message>
    <message>
        <source>The identification name is empty.</source>
        <translation>Der Name ist leer.</translation>
    </message>
    <message>
        <source>The identification name is not unique.</source>
        <translation>Der Name ist mehrfach vergeben.</translation>
    </message>
    <message>
        <source>File &apos;%1&apos; of &apos;%2&apos; does not exist.</source>
        <translation>Die Datei „%1“ von „%2“ gibt es nicht.</translation>
    </message>
    <message>
        <source>Invalid material assignment &apos;%1&apos; with name &apos;%2&apos;. Check the ID names of your assignments!</source>
        <translation>Die Zuweisung %1 nennt das Material „%2“, das es im Projekt nicht gibt.</translation>
    </message>
    <message>
        <source>Boundary condition with id name &apos;%1&apos; referenced from interface &apos;%2&apos; is not defined.</source>
        <translation>Die Randbedingung „%1“, die die Oberfläche „%2“ nennt, gibt es nicht.</translation>
    </message>
    <message>
        <source>Output grid with id name &apos;%1&apos; referenced from output file &apos;%2&apos; is not defined.</source>
        <translation>Das Ausgaberaster „%1“, das die Ausgabedatei „%2“ nennt, gibt es nicht.</translation>
    </message>
    <message>
        <source>Climate condition with id name &apos;%1&apos; referenced from %2 &apos;%3&apos; is not defined.</source>
        <translation>Die Klimabedingung „%1“, die „%3“ (%2) nennt, gibt es nicht.</translation>
    </message>
    <message>
        <source>%1 with id name &apos;%2&apos; referenced from assignment &apos;%3&apos; is not defined.</source>
        <translation>„%2“ (%1), das die Zuweisung %3 nennt, gibt es nicht.</translation>
    </message>
    <message>
        <source>An index in the range &apos;%1&apos; in assignment &apos;%2&apos; is out of grid range.</source>
        <translation>Der Bereich %1 der Zuweisung „%2“ liegt außerhalb des Gitters.</translation>
    </message>
    <message>
        <source>%1Parameter &apos;%2&apos; is missing for kind &apos;%3&apos;.</source>
        <translation>%1Der Parameter „%2“ fehlt, den die Art „%3“ braucht.</translation>
    </message>
    <message>
        <source>%1Parameter &apos;%2&apos; is %3, it must be positive.</source>
        <translation>%1Der Parameter „%2“ ist %3, er muss positiv sein.</translation>
    </message>
    <message>
        <source>%1Parameter &apos;%2&apos; is %3, it must be positive, at most %4.</source>
        <translation>%1Der Parameter „%2“ ist %3, er muss positiv und höchstens %4 sein.</translation>
    </message>
    <message>
        <source>%1Parameter &apos;%2&apos; is %3, it must not be negative.</source>
        <translation>%1Der Parameter „%2“ ist %3, er darf nicht negativ sein.</translation>
    </message>
    <message>
        <source>%1Parameter &apos;%2&apos; is %3, it must be at least %4.</source>
        <translation>%1Der Parameter „%2“ ist %3, er muss mindestens %4 sein.</translation>
    </message>
    <message>
        <source>%1Parameter &apos;%2&apos; is %3, it must lie within %4..%5.</source>
        <translation>%1Der Parameter „%2“ ist %3, er muss zwischen %4 und %5 liegen.</translation>
    </message>
    <message>
        <source>Parameter &apos;%1&apos; (%2) must not exceed &apos;%3&apos; (%4).</source>
        <translation>Der Parameter „%1“ (%2) darf „%3“ (%4) nicht überschreiten.</translation>
    </message>
    <message>
        <source>Parameter &apos;%1&apos; of the interval must lie after its start.</source>
        <translation>Der Parameter „%1“ des Zeitraums muss nach dessen Anfang liegen.</translation>
    </message>
    <message>
        <source>Climate condition &apos;%1&apos; has no climate data file.</source>
        <translation>Die Klimabedingung „%1“ nennt keine Klimadatei.</translation>
    </message>
    <message>
        <source>Missing parameter in climate condition &apos;%1&apos;!</source>
        <translation>In der Klimabedingung „%1“ fehlt ein Parameter!</translation>
    </message>
    <message>
        <source>The project names no climate data file of its location.</source>
        <translation>Das Projekt nennt keine Klimadatei seines Standorts.</translation>
    </message>
    <message>
        <source>Climate data file &apos;%1&apos; cannot be read.</source>
        <translation>Die Klimadatei „%1“ kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Climate data file &apos;%1&apos; holds no values of quantity &apos;%2&apos;.</source>
        <translation>Die Klimadatei „%1“ enthält keine Werte der Größe „%2“.</translation>
    </message>
    <message>
        <source>Climate condition &apos;%1&apos; cannot be used.</source>
        <translation>Die Klimabedingung „%1“ ist nicht verwendbar.</translation>
    </message>
    <message>
        <source>Material &apos;%1&apos; lacks a function that the calculation needs.</source>
        <translation>Dem Material „%1“ fehlt eine Funktion, die die Berechnung braucht.</translation>
    </message>
    <message>
        <source>Material &apos;%1&apos; cannot be used for moisture transport.</source>
        <translation>Mit dem Material „%1“ lässt sich kein Feuchtetransport berechnen.</translation>
    </message>
    <message>
        <source>Quantity %1 belongs to sides, it cannot be assigned to elements.</source>
        <translation>Die Größe %1 gehört zu Seiten, sie kann keinen Zellen zugewiesen werden.</translation>
    </message>
    <message>
        <source>Quantity %1 belongs to elements, it cannot be assigned to sides.</source>
        <translation>Die Größe %1 gehört zu Zellen, sie kann keinen Seiten zugewiesen werden.</translation>
    </message>
    <message>
        <source>Error in output &apos;%1&apos;.</source>
        <translation>Fehler in der Ausgabe „%1“.</translation>
    </message>
    <message>
        <source>The interrupted run cannot be continued.</source>
        <translation>Der unterbrochene Lauf kann nicht fortgesetzt werden.</translation>
    </message>
    <message>
        <source>The run cannot start.</source>
        <translation>Der Lauf kann nicht beginnen.</translation>
    </message>
    <message>
        <source>Restart file &apos;%1&apos; cannot be used.</source>
        <translation>Die Fortsetzungsdatei „%1“ ist nicht verwendbar.</translation>
    </message>
    <message>
        <source>Grid, materials or balances of the project are no longer those of the interrupted run.</source>
        <translation>Gitter, Materialien oder Bilanzen des Projekts sind nicht mehr die des unterbrochenen Laufs.</translation>
    </message>
    <message>
        <source>The outputs of the project are no longer those of the interrupted run.</source>
        <translation>Die Ausgaben des Projekts sind nicht mehr die des unterbrochenen Laufs.</translation>
    </message>
    <message>
        <source>The block-tridiagonal solver is for one-dimensional constructions; choose another one.</source>
        <translation>Der Löser für blocktridiagonale Gleichungen ist für eindimensionale Konstruktionen; wählen Sie einen anderen.</translation>
    </message>
    <message>
        <source>Out of memory.</source>
        <translation>Der Arbeitsspeicher reicht nicht.</translation>
    </message>
    <message>
        <source>File &apos;%1&apos; doesn&apos;t exist.</source>
        <translation>Die Datei „%1“ gibt es nicht.</translation>
    </message>
    <message>
        <source>Cannot write result file &apos;%1&apos;: %2</source>
        <translation>Die Ergebnisdatei „%1“ kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Cannot write file &apos;%1&apos;: %2</source>
        <translation>Die Datei „%1“ kann nicht geschrieben werden: %2</translation>
    </message>
    <message>
        <source>Cannot open file &apos;%1&apos;: %2</source>
        <translation>Die Datei „%1“ kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>Cannot read file &apos;%1&apos;: %2</source>
        <translation>Die Datei „%1“ kann nicht gelesen werden: %2</translation>
    </message>
    <message>
        <source>Error reading DataIO file &apos;%1&apos;</source>
        <translation>Fehler beim Lesen der Ergebnisdatei „%1“</translation>
    </message>
    <message>
        <source>File format not recognized!</source>
        <translation>Das Dateiformat wurde nicht erkannt.</translation>
    </message>
    <message>
        <source>Error on reading binary header from file.</source>
        <translation>Der Kopf der Binärdatei kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The file has version %1, newer than %2 of this program.</source>
        <translation>Die Datei hat die Version %1, neuer als %2 dieses Programms.</translation>
    </message>
    <message>
        <source>material</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>interface</source>
        <translation>Oberfläche</translation>
    </message>
    <message>
        <source>initial condition</source>
        <translation>Anfangsbedingung</translation>
    </message>
    <message>
        <source>field condition</source>
        <translation>Feldbedingung</translation>
    </message>
    <message>
        <source>contact condition</source>
        <translation>Kontaktbedingung</translation>
    </message>
    <message>
        <source>boundary condition</source>
        <translation>Randbedingung</translation>
    </message>
    <message>
        <source>climate condition</source>
        <translation>Klimabedingung</translation>
    </message>
    <message>
        <source>schedule</source>
        <translation>Zeitplan</translation>
    </message>
    <message>
        <source>output file</source>
        <translation>Ausgabedatei</translation>
    </message>
    <message>
        <source>output grid</source>
        <translation>Ausgaberaster</translation>
    </message>
    <message>
        <source>solution</source>
        <translation>Lösung</translation>
    </message>
    <message>
        <source>assignment</source>
        <translation>Zuweisung</translation>
    </message>
    <message>
        <source>assessment</source>
        <translation>Bewertung</translation>
    </message>
    <message>
        <source>Assignments</source>
        <translation>Zuweisungen</translation>
    </message>
    <message>
        <source>Discretization</source>
        <translation>Diskretisierung</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Ausgaben</translation>
    </message>
    <message>
        <source>Init</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Error in line %1 of project file:</source>
        <translation>Fehler in Zeile %1 der Projektdatei:</translation>
    </message>
    <message>
        <source>Error in XML file, line %1: %2</source>
        <translation>Fehler in der XML-Datei, Zeile %1: %2</translation>
    </message>
    <message>
        <source>Missing &apos;%1&apos; attribute in %2 element.</source>
        <translation>Dem Element %2 fehlt das Attribut „%1“.</translation>
    </message>
    <message>
        <source>Expected &apos;%1&apos; attribute in %2.</source>
        <translation>Erwartet wird das Attribut „%1“ in %2.</translation>
    </message>
    <message>
        <source>Unknown XML tag with name &apos;%1&apos; in %2 element.</source>
        <translation>Unbekanntes Element „%1“ im Element %2.</translation>
    </message>
    <message>
        <source>Unknown XML tag with name &apos;%1&apos; in &apos;%2&apos; section.</source>
        <translation>Unbekanntes Element „%1“ im Abschnitt „%2“.</translation>
    </message>
    <message>
        <source>Unknown element &apos;%1&apos; in %2.</source>
        <translation>Unbekanntes Element „%1“ in %2.</translation>
    </message>
    <message>
        <source>Section &apos;%1&apos; is given more than once.</source>
        <translation>Den Abschnitt „%1“ gibt es mehrmals.</translation>
    </message>
    <message>
        <source>Error reading elements in section &apos;%1&apos;.</source>
        <translation>Der Abschnitt „%1“ lässt sich nicht lesen.</translation>
    </message>
    <message>
        <source>Error reading %1 element.</source>
        <translation>Das Element %1 lässt sich nicht lesen.</translation>
    </message>
    <message>
        <source>Expected HygrionProject as root node in XML file.</source>
        <translation>Erwartet wird HygrionProject als Wurzel der XML-Datei.</translation>
    </message>
    <message>
        <source>Unit &apos;%1&apos; not found.</source>
        <translation>Die Einheit „%1“ gibt es nicht.</translation>
    </message>
    <message>
        <source>Could not convert &apos;%1&apos; into value.</source>
        <translation>„%1“ ist keine Zahl.</translation>
    </message>
    <message>
        <source>The project was written by a newer version of the program: its files have version %1, this program reads files up to version %2.</source>
        <translation>Das Projekt wurde von einer neueren Version des Programms geschrieben: Seine Dateien haben Version %1, dieses Programm liest Dateien bis Version %2.</translation>
    </message>
    <message>
        <source>The project holds something that could not be read again. Please mend it and save then.</source>
        <translation>Das Projekt enthält etwas, das nicht wieder gelesen werden könnte. Bitte erst berichtigen, dann speichern.</translation>
    </message>
    <message>
        <source>Project &apos;%1&apos; opened: %2 x %3 x %4 cells, %5 materials, %6 assignments.</source>
        <translation>Projekt „%1“ geöffnet: %2 x %3 x %4 Zellen, %5 Materialien, %6 Zuweisungen.</translation>
    </message>
    <message>
        <source>Project &apos;%1&apos; read again.</source>
        <translation>Projekt „%1“ neu gelesen.</translation>
    </message>
    <message>
        <source>Placeholder &apos;%1&apos; is being used in one or more referenced files, but not defined within the placeholder section</source>
        <translation>Der Platzhalter „%1“ steht in Pfaden von Dateien, ist im Projekt aber nicht festgelegt.</translation>
    </message>
    <message>
        <source>Placeholder &apos;%1&apos; is built in, its definition in the project is ignored.</source>
        <translation>Der Platzhalter „%1“ ist eingebaut; was das Projekt dafür festlegt, gilt nicht.</translation>
    </message>
    <message>
        <source>Error reading material data file &apos;%1&apos;</source>
        <translation>Die Materialdatei „%1“ lässt sich nicht lesen</translation>
    </message>
    <message>
        <source>Installing translator for language: &apos;%1&apos;.</source>
        <translation>Sprache des Programms: „%1“.</translation>
    </message>
    <message>
        <source>Could not load system translator file: &apos;%1&apos;.</source>
        <translation>Die Übersetzungsdatei „%1“ von Qt lässt sich nicht laden.</translation>
    </message>
    <message>
        <source>Could not load application translator file: &apos;%1&apos;.</source>
        <translation>Die Übersetzungsdatei „%1“ des Programms lässt sich nicht laden.</translation>
    </message>
    <message>
        <source>Cannot create the user data directory &apos;%1&apos;.</source>
        <translation>Der Ordner „%1“ für Benutzerdaten lässt sich nicht anlegen.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a journal.</source>
        <translation>„%1“ ist kein Journal.</translation>
    </message>
    <message>
        <source>The head of journal &apos;%1&apos; cannot be read.</source>
        <translation>Der Kopf des Journals „%1“ lässt sich nicht lesen.</translation>
    </message>
    <message>
        <source>A journal of unsaved changes cannot be used.</source>
        <translation>Ein Journal nicht gespeicherter Änderungen lässt sich nicht verwenden.</translation>
    </message>
    <message>
        <source>The text holds no block of cells.</source>
        <translation>Der Text in der Zwischenablage enthält keinen Block von Zellen.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is defined neither in this project nor among the copied cells.</source>
        <translation>„%1“ ist weder in diesem Projekt noch bei den kopierten Zellen festgelegt.</translation>
    </message>
    <message>
        <source>cell %1 (%2, at %3)</source>
        <translation>Zelle %1 (%2, bei %3)</translation>
    </message>
</context>
<context>
    <name>HygDiscretizationDialog</name>
    <message>
        <source>at both borders</source>
        <translation>an beiden Rändern</translation>
    </message>
    <message>
        <source>at the start</source>
        <translation>am Anfang</translation>
    </message>
    <message>
        <source>at the end</source>
        <translation>am Ende</translation>
    </message>
    <message>
        <source>nowhere: one cell</source>
        <translation>nirgends: eine Zelle</translation>
    </message>
    <message>
        <source>Automatic discretization</source>
        <translation>Automatische Diskretisierung</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Richtung</translation>
    </message>
    <message>
        <source>Preview of the cells</source>
        <translation>Vorschau der Zellen</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Schichten</translation>
    </message>
    <message>
        <source>The settings beside hold for the selected layers; Ctrl+A selects all</source>
        <translation>Die Einstellungen daneben gelten für die ausgewählten Schichten; Strg+A wählt alle aus</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Schicht</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Zellen</translation>
    </message>
    <message>
        <source>&amp;Divide anew</source>
        <translation>&amp;Neu teilen</translation>
    </message>
    <message>
        <source>Otherwise the cells of the layer stay as they are</source>
        <translation>Sonst bleiben die Zellen der Schicht, wie sie sind</translation>
    </message>
    <message>
        <source>Where the cells are smallest: where temperature and moisture change quickly</source>
        <translation>Wo die Zellen am kleinsten sind: wo Temperatur und Feuchte sich schnell ändern</translation>
    </message>
    <message>
        <source>&amp;Fine</source>
        <translation>&amp;Fein</translation>
    </message>
    <message>
        <source>Width of the smallest cell, usually 0.5 mm to 5 mm</source>
        <translation>Breite der kleinsten Zelle, meist 0,5 mm bis 5 mm</translation>
    </message>
    <message>
        <source>S&amp;mallest cell</source>
        <translation>&amp;Kleinste Zelle</translation>
    </message>
    <message>
        <source>Width that no cell exceeds, usually 10 mm to 100 mm; 0 for no limit</source>
        <translation>Breite, die keine Zelle überschreitet, meist 10 mm bis 100 mm; 0 für keine Grenze</translation>
    </message>
    <message>
        <source>&amp;Largest cell</source>
        <translation>&amp;Größte Zelle</translation>
    </message>
    <message>
        <source>geometric</source>
        <translation>geometrisch</translation>
    </message>
    <message>
        <source>hyperbolic tangent</source>
        <translation>Tangens hyperbolicus</translation>
    </message>
    <message>
        <source>Geometric: each cell is wider than the one before by the stretch factor</source>
        <translation>Geometrisch: jede Zelle ist um den Streckfaktor breiter als die vorige</translation>
    </message>
    <message>
        <source>&amp;Growth</source>
        <translation>&amp;Wachstum</translation>
    </message>
    <message>
        <source>Growth from cell to cell, usually 1.1 to 1.6; larger makes fewer cells</source>
        <translation>Wachstum von Zelle zu Zelle, meist 1,1 bis 1,6; größer macht weniger Zellen</translation>
    </message>
    <message>
        <source>&amp;Stretch factor</source>
        <translation>&amp;Streckfaktor</translation>
    </message>
    <message>
        <source>&amp;Divide</source>
        <translation>&amp;Teilen</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Columns %1 to %2</source>
        <translation>Spalten %1 bis %2</translation>
    </message>
    <message>
        <source>Rows %1 to %2</source>
        <translation>Zeilen %1 bis %2</translation>
    </message>
    <message>
        <source>%1 cells, %2 before</source>
        <translation>%1 Zellen, vorher %2</translation>
    </message>
    <message>
        <source>With so many cells a calculation takes very long; larger cells inside the layers are usually enough.</source>
        <translation>Mit so vielen Zellen dauert eine Berechnung sehr lange; meist genügen größere Zellen im Inneren der Schichten.</translation>
    </message>
    <message>
        <source>Stack planes</source>
        <translation>Ebenen</translation>
    </message>
    <message>
        <source>Which cells are divided</source>
        <translation>Welche Zellen geteilt werden</translation>
    </message>
    <message>
        <source>Column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>Row %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>Plane %1</source>
        <translation>Ebene %1</translation>
    </message>
    <message>
        <source>Planes %1 to %2</source>
        <translation>Ebenen %1 bis %2</translation>
    </message>
</context>
<context>
    <name>HygFileActions</name>
    <message>
        <source>Save the changes of project &apos;%1&apos;?</source>
        <translation>Änderungen des Projekts „%1“ speichern?</translation>
    </message>
    <message>
        <source>Changes that are not saved are lost when the project is closed.</source>
        <translation>Änderungen, die nicht gespeichert werden, gehen beim Schließen verloren.</translation>
    </message>
    <message>
        <source>Hygrion projects (*.%1)</source>
        <translation>Hygrion-Projekte (*.%1)</translation>
    </message>
    <message>
        <source>New project</source>
        <translation>Neues Projekt</translation>
    </message>
    <message>
        <source>Open project</source>
        <translation>Projekt öffnen</translation>
    </message>
    <message>
        <source>Save project as</source>
        <translation>Projekt speichern unter</translation>
    </message>
    <message>
        <source>Save a copy</source>
        <translation>Kopie speichern</translation>
    </message>
    <message>
        <source>Hygrion project packages (*.%1)</source>
        <translation>Hygrion-Projektpakete (*.%1)</translation>
    </message>
    <message>
        <source>The second window could not be opened.</source>
        <translation>Das zweite Fenster konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Another program has changed the file of project &apos;%1&apos;. Overwrite it?</source>
        <translation>Ein anderes Programm hat die Datei des Projekts „%1“ geändert. Überschreiben?</translation>
    </message>
    <message>
        <source>The changes that the other program made are lost then.</source>
        <translation>Was das andere Programm geändert hat, geht dabei verloren.</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>Ü&amp;berschreiben</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>The file of project &apos;%1&apos; has been removed or renamed. The project is still open; saving writes it anew.</source>
        <translation>Die Datei des Projekts „%1“ wurde gelöscht oder umbenannt. Das Projekt ist weiter geöffnet; Speichern schreibt es neu.</translation>
    </message>
    <message>
        <source>Another program has changed project &apos;%1&apos;; it has been read again.</source>
        <translation>Ein anderes Programm hat das Projekt „%1“ geändert; es wurde neu gelesen.</translation>
    </message>
    <message>
        <source>Another program has changed the file of project &apos;%1&apos;.</source>
        <translation>Ein anderes Programm hat die Datei des Projekts „%1“ geändert.</translation>
    </message>
    <message>
        <source>You have changes that are not saved. Reading the file again gives them up; keeping them leaves the file as it is until you save.</source>
        <translation>Sie haben Änderungen, die nicht gespeichert sind. Neu lesen verwirft sie; behalten lässt die Datei, wie sie ist, bis Sie speichern.</translation>
    </message>
    <message>
        <source>&amp;Read again</source>
        <translation>&amp;Neu lesen</translation>
    </message>
    <message>
        <source>&amp;Keep my changes</source>
        <translation>Meine Änderungen &amp;behalten</translation>
    </message>
    <message>
        <source>Export project package</source>
        <translation>Projektpaket exportieren</translation>
    </message>
    <message>
        <source>Packing project &apos;%1&apos;…</source>
        <translation>Projekt „%1“ wird gepackt…</translation>
    </message>
    <message>
        <source>The project has been packed as &apos;%1&apos;.</source>
        <translation>Das Projekt wurde als „%1“ gepackt.</translation>
    </message>
    <message>
        <source>The project cannot be packed.</source>
        <translation>Das Projekt kann nicht gepackt werden.</translation>
    </message>
    <message>
        <source>Import project package</source>
        <translation>Projektpaket importieren</translation>
    </message>
    <message>
        <source>Folder to unpack project &apos;%1&apos; in</source>
        <translation>Ordner, in den das Projekt „%1“ entpackt wird</translation>
    </message>
    <message>
        <source>Unpacking &apos;%1&apos;…</source>
        <translation>„%1“ wird entpackt…</translation>
    </message>
    <message>
        <source>The package &apos;%1&apos; cannot be opened.</source>
        <translation>Das Paket „%1“ kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>The package has been unpacked into &apos;%1&apos;.</source>
        <translation>Das Paket wurde nach „%1“ entpackt.</translation>
    </message>
</context>
<context>
    <name>HygFormat</name>
    <message>
        <source>en</source>
        <extracomment>two letters of the language, by which numbers and dates are written</extracomment>
        <translation>de</translation>
    </message>
    <message>
        <source>yyyy-MM-dd</source>
        <extracomment>pattern of a date</extracomment>
        <translation>dd.MM.yyyy</translation>
    </message>
</context>
<context>
    <name>HygGridRuler</name>
    <message numerus="yes">
        <source>%n cells</source>
        <translation>
            <numerusform>%n Zelle</numerusform>
            <numerusform>%n Zellen</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 in %2. Click to select, double-click for another width.</source>
        <translation>%1 in %2. Klick wählt aus, Doppelklick ändert die Breite.</translation>
    </message>
</context>
<context>
    <name>HygHelpWindow</name>
    <message>
        <source>The user guide is not installed: it is missing in folder &apos;%1&apos;.</source>
        <translation>Das Handbuch ist nicht installiert: Es fehlt im Ordner „%1“.</translation>
    </message>
    <message>
        <source>User guide</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Vor</translation>
    </message>
</context>
<context>
    <name>HygHintBar</name>
    <message>
        <source>What the construction lacks</source>
        <translation>Was der Konstruktion fehlt</translation>
    </message>
    <message>
        <source>show</source>
        <translation>zeigen</translation>
    </message>
    <message numerus="yes">
        <source>%n cells have no material.</source>
        <translation>
            <numerusform>%n Zelle hat kein Material.</numerusform>
            <numerusform>%n Zellen haben kein Material.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n cells have no material; they are open air.</source>
        <translation>
            <numerusform>%n Zelle hat kein Material; sie ist freie Luft.</numerusform>
            <numerusform>%n Zellen haben kein Material; sie sind freie Luft.</numerusform>
        </translation>
    </message>
    <message>
        <source>choose a material</source>
        <translation>Material wählen</translation>
    </message>
    <message numerus="yes">
        <source>%n cells have a material that the project does not define.</source>
        <translation>
            <numerusform>%n Zelle hat ein Material, das das Projekt nicht definiert.</numerusform>
            <numerusform>%n Zellen haben ein Material, das das Projekt nicht definiert.</numerusform>
        </translation>
    </message>
    <message>
        <source>choose another material</source>
        <translation>anderes Material wählen</translation>
    </message>
    <message numerus="yes">
        <source>Materials lie upon one another in %n cells; the last assigned counts.</source>
        <translation>
            <numerusform>Materialien liegen in %n Zelle übereinander; das zuletzt zugewiesene gilt.</numerusform>
            <numerusform>Materialien liegen in %n Zellen übereinander; das zuletzt zugewiesene gilt.</numerusform>
        </translation>
    </message>
    <message>
        <source>cut off what is covered</source>
        <translation>Verdecktes abschneiden</translation>
    </message>
    <message>
        <source>%1: no interface, no heat or moisture passes there.</source>
        <translation>%1: kein Klima zugewiesen, dort gehen weder Wärme noch Feuchte durch.</translation>
    </message>
    <message numerus="yes">
        <source>%1: %n faces to open air without interface.</source>
        <translation>
            <numerusform>%1: %n Fläche zur freien Luft, der kein Klima zugewiesen ist.</numerusform>
            <numerusform>%1: %n Flächen zur freien Luft, denen kein Klima zugewiesen ist.</numerusform>
        </translation>
    </message>
    <message>
        <source>standard outdoor climate</source>
        <translation>genormtes Außenklima</translation>
    </message>
    <message>
        <source>standard indoor climate</source>
        <translation>genormtes Innenklima</translation>
    </message>
    <message>
        <source>Outer edges without interface, where nothing passes:</source>
        <translation>Äußere Ränder ohne Klima, durch die nichts geht:</translation>
    </message>
    <message>
        <source>No outputs are assigned; a run would leave no results.</source>
        <translation>Es sind keine Ausgaben zugewiesen; eine Berechnung hinterließe keine Ergebnisse.</translation>
    </message>
    <message>
        <source>standard outputs</source>
        <translation>übliche Ausgaben</translation>
    </message>
    <message>
        <source>Nothing is missing here.</source>
        <translation>Hier fehlt nichts.</translation>
    </message>
    <message>
        <source>Material &apos;%1&apos;: %2</source>
        <comment>name and what is wrong with its file</comment>
        <translation>Material „%1“: %2</translation>
    </message>
</context>
<context>
    <name>HygInitForm</name>
    <message>
        <source>Change of &apos;%1&apos;</source>
        <translation>Änderung von „%1“</translation>
    </message>
    <message>
        <source>Default: %1</source>
        <translation>Vorgabe: %1</translation>
    </message>
    <message>
        <source>more than 0</source>
        <translation>mehr als 0</translation>
    </message>
    <message>
        <source>Allowed: %1 to %2</source>
        <translation>Erlaubt: %1 bis %2</translation>
    </message>
    <message>
        <source>Allowed: from %1</source>
        <translation>Erlaubt: ab %1</translation>
    </message>
    <message>
        <source>Choose a file</source>
        <translation>Datei auswählen</translation>
    </message>
    <message>
        <source>%1 The value before is in force.</source>
        <translation>%1 Der vorige Wert gilt.</translation>
    </message>
</context>
<context>
    <name>HygInitTexts</name>
    <message>
        <source>Balances</source>
        <translation>Bilanzen</translation>
    </message>
    <message>
        <source>Balance equations:</source>
        <translation>Bilanzgleichungen:</translation>
    </message>
    <message>
        <source>Which balances are solved. Air, pollutants and salt can be stored in projects; the solver calculates heat and moisture.</source>
        <translation>Welche Bilanzen gelöst werden. Luft, Schadstoffe und Salz können in Projekten stehen; der Löser rechnet Wärme und Feuchte.</translation>
    </message>
    <message>
        <source>Thermal conductivity:</source>
        <translation>Wärmeleitfähigkeit:</translation>
    </message>
    <message>
        <source>The conductivity of the materials that counts: of the dry material, the design value, or growing with the water in it.</source>
        <translation>Welche Leitfähigkeit der Materialien gilt: die des trockenen Materials, der Bemessungswert, oder mit dem Wasser darin wachsend.</translation>
    </message>
    <message>
        <source>Temperature of isothermal runs:</source>
        <translation>Temperatur isothermer Läufe:</translation>
    </message>
    <message>
        <source>Temperature of the whole construction when moisture alone is calculated, usually 20 °C to 25 °C.</source>
        <translation>Temperatur der ganzen Konstruktion, wenn nur Feuchte gerechnet wird, meist 20 °C bis 25 °C.</translation>
    </message>
    <message>
        <source>Flux modules:</source>
        <translation>Strommodule:</translation>
    </message>
    <message>
        <source>Modules of transport, separated by commas; &quot;name = other&quot; stands in for another module. Usually empty.</source>
        <translation>Module des Transports, durch Kommas getrennt; „Name = anderes“ ersetzt ein anderes Modul. Meist leer.</translation>
    </message>
    <message>
        <source>Source modules:</source>
        <translation>Quellmodule:</translation>
    </message>
    <message>
        <source>Modules of sources, separated by commas; &quot;name = other&quot; stands in for another module. Usually empty.</source>
        <translation>Module der Quellen, durch Kommas getrennt; „Name = anderes“ ersetzt ein anderes Modul. Meist leer.</translation>
    </message>
    <message>
        <source>Simulated time</source>
        <translation>Simulierte Zeit</translation>
    </message>
    <message>
        <source>Start:</source>
        <translation>Beginn:</translation>
    </message>
    <message>
        <source>Time since 1 January of the start year at which the simulation begins; empty for 0. With 273 d it begins on 1 October.</source>
        <translation>Zeit seit dem 1. Januar des Startjahrs, zu der die Simulation beginnt; leer für 0. Mit 273 d beginnt sie am 1. Oktober.</translation>
    </message>
    <message>
        <source>Duration:</source>
        <translation>Dauer:</translation>
    </message>
    <message>
        <source>How long is simulated, usually 1 to 10 years (&quot;3 a&quot;). Give either this or the end.</source>
        <translation>Wie lange simuliert wird, meist 1 bis 10 Jahre („3 a“). Geben Sie dies oder das Ende an.</translation>
    </message>
    <message>
        <source>End:</source>
        <translation>Ende:</translation>
    </message>
    <message>
        <source>Time since 1 January of the start year at which the simulation ends. Give either this or the duration.</source>
        <translation>Zeit seit dem 1. Januar des Startjahrs, zu der die Simulation endet. Geben Sie dies oder die Dauer an.</translation>
    </message>
    <message>
        <source>Start year:</source>
        <translation>Startjahr:</translation>
    </message>
    <message>
        <source>Year of the calendar in which the simulation starts. Climates that repeat every year fit to any.</source>
        <translation>Kalenderjahr, in dem die Simulation beginnt. Klimata, die sich jährlich wiederholen, passen zu jedem.</translation>
    </message>
    <message>
        <source>Initial state</source>
        <translation>Anfangszustand</translation>
    </message>
    <message>
        <source>Initial temperature:</source>
        <translation>Anfangstemperatur:</translation>
    </message>
    <message>
        <source>Where no initial condition is assigned; usually 10 °C to 20 °C.</source>
        <translation>Wo keine Anfangsbedingung zugewiesen ist; meist 10 °C bis 20 °C.</translation>
    </message>
    <message>
        <source>Initial relative humidity:</source>
        <translation>Relative Anfangsfeuchte:</translation>
    </message>
    <message>
        <source>Where no initial condition is assigned; usually 50 % to 80 %, more in wet masonry.</source>
        <translation>Wo keine Anfangsbedingung zugewiesen ist; meist 50 % bis 80 %, mehr in nassem Mauerwerk.</translation>
    </message>
    <message>
        <source>Climate and place</source>
        <translation>Klima und Ort</translation>
    </message>
    <message>
        <source>Climate data file:</source>
        <translation>Klimadatei:</translation>
    </message>
    <message>
        <source>The weather of the place (c6b, epw, wac, dat), from which all climate conditions of the kind CCM are taken.</source>
        <translation>Das Wetter des Orts (c6b, epw, wac, dat), aus dem alle Klimabedingungen der Art CCM genommen werden.</translation>
    </message>
    <message>
        <source>Use a place of its own instead of the climate file&apos;s</source>
        <translation>Eigenen Ort statt des Orts der Klimadatei verwenden</translation>
    </message>
    <message>
        <source>The sun is calculated for the place given below.</source>
        <translation>Die Sonne wird für den unten angegebenen Ort gerechnet.</translation>
    </message>
    <message>
        <source>Latitude:</source>
        <translation>Breitengrad:</translation>
    </message>
    <message>
        <source>Latitude of the place, north is positive. Counts only with a place of its own.</source>
        <translation>Breite des Orts, Norden ist positiv. Zählt nur bei eigenem Ort.</translation>
    </message>
    <message>
        <source>Longitude:</source>
        <translation>Längengrad:</translation>
    </message>
    <message>
        <source>Longitude of the place, east is positive. Counts only with a place of its own.</source>
        <translation>Länge des Orts, Osten ist positiv. Zählt nur bei eigenem Ort.</translation>
    </message>
    <message>
        <source>Height above sea level:</source>
        <translation>Höhe über dem Meer:</translation>
    </message>
    <message>
        <source>Height of the place. Counts only with a place of its own.</source>
        <translation>Höhe des Orts. Zählt nur bei eigenem Ort.</translation>
    </message>
    <message>
        <source>Time zone:</source>
        <translation>Zeitzone:</translation>
    </message>
    <message>
        <source>Hours before Greenwich, 1 for Central Europe. Counts only with a place of its own.</source>
        <translation>Stunden vor Greenwich, 1 für Mitteleuropa. Zählt nur bei eigenem Ort.</translation>
    </message>
    <message>
        <source>Albedo of the ground:</source>
        <translation>Albedo des Bodens:</translation>
    </message>
    <message>
        <source>Share of the sun that the surroundings reflect: about 0.2 for grass, 0.7 for fresh snow.</source>
        <translation>Anteil der Sonne, den die Umgebung zurückwirft: etwa 0.2 bei Gras, 0.7 bei frischem Schnee.</translation>
    </message>
    <message>
        <source>Physics</source>
        <translation>Physik</translation>
    </message>
    <message>
        <source>Water may freeze</source>
        <translation>Wasser kann gefrieren</translation>
    </message>
    <message>
        <source>Ice in equilibrium with the water of the pores. Needed for frost questions; makes runs slower.</source>
        <translation>Eis im Gleichgewicht mit dem Wasser der Poren. Nötig bei Frostfragen; macht Läufe langsamer.</translation>
    </message>
    <message>
        <source>Pores cannot be overfilled</source>
        <translation>Poren können nicht überfüllt werden</translation>
    </message>
    <message>
        <source>Keeps states that the equations alone would allow within the volume of the pores.</source>
        <translation>Hält Zustände, die die Gleichungen allein zuließen, innerhalb des Porenvolumens.</translation>
    </message>
    <message>
        <source>Stop at 100 °C</source>
        <translation>Bei 100 °C aufhören</translation>
    </message>
    <message>
        <source>A run that heats a part above 100 °C ends with an error, since boiling is outside of the model.</source>
        <translation>Ein Lauf, der ein Teil über 100 °C erwärmt, endet mit einem Fehler, denn Sieden liegt außerhalb des Modells.</translation>
    </message>
    <message>
        <source>Gravity acts on water</source>
        <translation>Schwerkraft wirkt auf Wasser</translation>
    </message>
    <message>
        <source>Matters in coarse pores and tall parts only.</source>
        <translation>Zählt nur in groben Poren und hohen Bauteilen.</translation>
    </message>
    <message>
        <source>Gravity acts on air</source>
        <translation>Schwerkraft wirkt auf Luft</translation>
    </message>
    <message>
        <source>Matters for air flow in cavities only.</source>
        <translation>Zählt nur bei Luftströmung in Hohlräumen.</translation>
    </message>
    <message>
        <source>Use the Kirchhoff potential</source>
        <translation>Kirchhoff-Potential verwenden</translation>
    </message>
    <message>
        <source>Liquid transport by the integral of the conductivity; helps where it changes by powers of ten within a cell.</source>
        <translation>Flüssigtransport über das Integral der Leitfähigkeit; hilft, wo sie sich in einer Zelle um Zehnerpotenzen ändert.</translation>
    </message>
    <message>
        <source>Strict checks of materials</source>
        <translation>Strenge Prüfung der Materialien</translation>
    </message>
    <message>
        <source>Transport functions that are not strictly monotone are refused. Measured ones seldom are.</source>
        <translation>Transportfunktionen, die nicht streng monoton sind, werden abgelehnt. Gemessene sind es selten.</translation>
    </message>
    <message>
        <source>Salt</source>
        <translation>Salz</translation>
    </message>
    <message>
        <source>Salt database:</source>
        <translation>Salzdatenbank:</translation>
    </message>
    <message>
        <source>File with the data of the salts.</source>
        <translation>Datei mit den Daten der Salze.</translation>
    </message>
    <message>
        <source>Salts:</source>
        <translation>Salze:</translation>
    </message>
    <message>
        <source>Identifiers of the salts in the database, separated by blanks.</source>
        <translation>Kennungen der Salze in der Datenbank, durch Leerzeichen getrennt.</translation>
    </message>
    <message>
        <source>Pollutant (VOC)</source>
        <translation>Schadstoff (VOC)</translation>
    </message>
    <message>
        <source>VOC database:</source>
        <translation>VOC-Datenbank:</translation>
    </message>
    <message>
        <source>File with the data of the pollutants.</source>
        <translation>Datei mit den Daten der Schadstoffe.</translation>
    </message>
    <message>
        <source>Pollutant:</source>
        <translation>Schadstoff:</translation>
    </message>
    <message>
        <source>Identifier of the pollutant in the database.</source>
        <translation>Kennung des Schadstoffs in der Datenbank.</translation>
    </message>
    <message>
        <source>Pollutant data of materials:</source>
        <translation>Schadstoffdaten der Materialien:</translation>
    </message>
    <message>
        <source>Pairs &quot;material==data&quot;, separated by commas: the name of a material and the identifier of its data.</source>
        <translation>Paare „Material==Daten“, durch Kommas getrennt: der Name eines Materials und die Kennung seiner Daten.</translation>
    </message>
    <message>
        <source>Method</source>
        <translation>Verfahren</translation>
    </message>
    <message>
        <source>Integrator:</source>
        <translation>Integrator:</translation>
    </message>
    <message>
        <source>How the equations are carried through time. &quot;Automatic&quot; is right unless methods are to be compared.</source>
        <translation>Wie die Gleichungen durch die Zeit geführt werden. „Automatisch“ ist richtig, solange nicht Verfahren verglichen werden sollen.</translation>
    </message>
    <message>
        <source>Highest order:</source>
        <translation>Höchste Ordnung:</translation>
    </message>
    <message>
        <source>Of the multi-step method (CVODE). Lower orders are more robust and need more steps.</source>
        <translation>Des Mehrschrittverfahrens (CVODE). Niedrigere Ordnungen sind robuster und brauchen mehr Schritte.</translation>
    </message>
    <message>
        <source>Detect limits of stability</source>
        <translation>Stabilitätsgrenzen erkennen</translation>
    </message>
    <message>
        <source>Lowers the order where the multi-step method might swing. Rarely of use.</source>
        <translation>Senkt die Ordnung, wo das Mehrschrittverfahren schwingen könnte. Selten nützlich.</translation>
    </message>
    <message>
        <source>Time steps</source>
        <translation>Zeitschritte</translation>
    </message>
    <message>
        <source>Longest step:</source>
        <translation>Längster Schritt:</translation>
    </message>
    <message>
        <source>So that no shower is stepped over; 30 min to 1 h with hourly climate data, more in steady climates.</source>
        <translation>Damit kein Schauer übersprungen wird; 30 min bis 1 h bei stündlichen Klimadaten, mehr bei stetigem Klima.</translation>
    </message>
    <message>
        <source>First step:</source>
        <translation>Erster Schritt:</translation>
    </message>
    <message>
        <source>Also after jumps of the climate. Grows by itself.</source>
        <translation>Auch nach Sprüngen des Klimas. Wächst von selbst.</translation>
    </message>
    <message>
        <source>Shortest step:</source>
        <translation>Kürzester Schritt:</translation>
    </message>
    <message>
        <source>A run that needs shorter steps ends with an error.</source>
        <translation>Ein Lauf, der kürzere Schritte braucht, endet mit einem Fehler.</translation>
    </message>
    <message>
        <source>Accuracy</source>
        <translation>Genauigkeit</translation>
    </message>
    <message>
        <source>Relative tolerance:</source>
        <translation>Relative Toleranz:</translation>
    </message>
    <message>
        <source>Error of a step relative to the content of a cell; usually 1e-4 (fast) to 1e-7 (exact).</source>
        <translation>Fehler eines Schritts bezogen auf den Inhalt einer Zelle; meist 1e-4 (schnell) bis 1e-7 (genau).</translation>
    </message>
    <message>
        <source>Tolerance of energy:</source>
        <translation>Toleranz der Energie:</translation>
    </message>
    <message>
        <source>Error of a step in a cubic metre that does not matter however small the content.</source>
        <translation>Fehler eines Schritts in einem Kubikmeter, der nicht zählt, wie klein der Inhalt auch ist.</translation>
    </message>
    <message>
        <source>Tolerance of moisture:</source>
        <translation>Toleranz der Feuchte:</translation>
    </message>
    <message>
        <source>Error of a step in a cubic metre that does not matter however small the content; usually 1e-7 kg to 1e-4 kg.</source>
        <translation>Fehler eines Schritts in einem Kubikmeter, der nicht zählt, wie klein der Inhalt auch ist; meist 1e-7 kg bis 1e-4 kg.</translation>
    </message>
    <message>
        <source>Tolerance of air:</source>
        <translation>Toleranz der Luft:</translation>
    </message>
    <message>
        <source>Counts only where air is balanced.</source>
        <translation>Zählt nur, wo Luft bilanziert wird.</translation>
    </message>
    <message>
        <source>Tolerance of salt:</source>
        <translation>Toleranz des Salzes:</translation>
    </message>
    <message>
        <source>Counts only where salt is balanced.</source>
        <translation>Zählt nur, wo Salz bilanziert wird.</translation>
    </message>
    <message>
        <source>Tolerance of the pollutant:</source>
        <translation>Toleranz des Schadstoffs:</translation>
    </message>
    <message>
        <source>Counts only where a pollutant is balanced.</source>
        <translation>Zählt nur, wo ein Schadstoff bilanziert wird.</translation>
    </message>
    <message>
        <source>Iterations within a step</source>
        <translation>Iterationen innerhalb eines Schritts</translation>
    </message>
    <message>
        <source>Most iterations:</source>
        <translation>Höchste Zahl:</translation>
    </message>
    <message>
        <source>A step that needs more is taken again, shorter.</source>
        <translation>Ein Schritt, der mehr braucht, wird kürzer wiederholt.</translation>
    </message>
    <message>
        <source>Convergence limit:</source>
        <translation>Konvergenzgrenze:</translation>
    </message>
    <message>
        <source>Share of the tolerance that the iterations may leave.</source>
        <translation>Anteil der Toleranz, den die Iterationen übrig lassen dürfen.</translation>
    </message>
    <message>
        <source>Linear equations</source>
        <translation>Lineare Gleichungen</translation>
    </message>
    <message>
        <source>Solver of the linear equations:</source>
        <translation>Löser der linearen Gleichungen:</translation>
    </message>
    <message>
        <source>&quot;Automatic&quot; knows the size of the problem: block-tridiagonal in one dimension, sparse in two, iterative for the largest.</source>
        <translation>„Automatisch“ kennt die Größe des Problems: blocktridiagonal in einer Dimension, dünn besetzt in zweien, iterativ bei den größten.</translation>
    </message>
    <message>
        <source>Width of the band:</source>
        <translation>Breite des Bands:</translation>
    </message>
    <message>
        <source>Of the band solver; 0 takes what the grid needs.</source>
        <translation>Des Bandlösers; 0 nimmt, was das Gitter braucht.</translation>
    </message>
    <message>
        <source>Iterative solvers</source>
        <translation>Iterative Löser</translation>
    </message>
    <message>
        <source>Preconditioner:</source>
        <translation>Vorkonditionierer:</translation>
    </message>
    <message>
        <source>What makes the iterative solvers converge. Counts only with GMRES and BiCGStab.</source>
        <translation>Was die iterativen Löser konvergieren lässt. Zählt nur bei GMRES und BiCGStab.</translation>
    </message>
    <message>
        <source>Most iterations (Krylov dimension):</source>
        <translation>Höchste Zahl der Iterationen (Krylov-Dimension):</translation>
    </message>
    <message>
        <source>Usually 20 to 100; more takes memory.</source>
        <translation>Meist 20 bis 100; mehr kostet Speicher.</translation>
    </message>
    <message>
        <source>Convergence limit (linear):</source>
        <translation>Konvergenzgrenze (linear):</translation>
    </message>
    <message>
        <source>Share of the nonlinear tolerance that the linear iterations may leave.</source>
        <translation>Anteil der nichtlinearen Toleranz, den die linearen Iterationen übrig lassen dürfen.</translation>
    </message>
    <message>
        <source>Width of the band preconditioner:</source>
        <translation>Breite des Band-Vorkonditionierers:</translation>
    </message>
    <message>
        <source>To either side of the diagonal; wider ones converge in fewer iterations that take longer.</source>
        <translation>Nach jeder Seite der Diagonale; breitere konvergieren in weniger Iterationen, die länger dauern.</translation>
    </message>
    <message>
        <source>Fill-in of the incomplete factors:</source>
        <translation>Auffüllung der unvollständigen Faktoren:</translation>
    </message>
    <message>
        <source>Levels of fill-in of the ILU preconditioner; usually 0 to 2.</source>
        <translation>Stufen der Auffüllung des ILU-Vorkonditionierers; meist 0 bis 2.</translation>
    </message>
    <message>
        <source>Heat</source>
        <translation>Wärme</translation>
    </message>
    <message>
        <source>Moisture at constant temperature</source>
        <translation>Feuchte bei fester Temperatur</translation>
    </message>
    <message>
        <source>Heat and moisture</source>
        <translation>Wärme und Feuchte</translation>
    </message>
    <message>
        <source>Heat, air and moisture</source>
        <translation>Wärme, Luft und Feuchte</translation>
    </message>
    <message>
        <source>Heat, moisture and a pollutant</source>
        <translation>Wärme, Feuchte und ein Schadstoff</translation>
    </message>
    <message>
        <source>Heat, moisture and salt</source>
        <translation>Wärme, Feuchte und Salz</translation>
    </message>
    <message>
        <source>Of the dry material</source>
        <translation>Des trockenen Materials</translation>
    </message>
    <message>
        <source>Design value</source>
        <translation>Bemessungswert</translation>
    </message>
    <message>
        <source>Growing with moisture</source>
        <translation>Mit der Feuchte wachsend</translation>
    </message>
    <message>
        <source>Multi-step method (CVODE)</source>
        <translation>Mehrschrittverfahren (CVODE)</translation>
    </message>
    <message>
        <source>Explicit Euler</source>
        <translation>Explizites Eulerverfahren</translation>
    </message>
    <message>
        <source>Implicit Euler</source>
        <translation>Implizites Eulerverfahren</translation>
    </message>
    <message>
        <source>Alternating directions (ADI)</source>
        <translation>Wechselnde Richtungen (ADI)</translation>
    </message>
    <message>
        <source>Runge-Kutta</source>
        <translation>Runge-Kutta</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Block-tridiagonal</source>
        <translation>Blocktridiagonal</translation>
    </message>
    <message>
        <source>Band</source>
        <translation>Band</translation>
    </message>
    <message>
        <source>Dense</source>
        <translation>Voll besetzt</translation>
    </message>
    <message>
        <source>Sparse (KLU)</source>
        <translation>Dünn besetzt (KLU)</translation>
    </message>
    <message>
        <source>Iterative (GMRES)</source>
        <translation>Iterativ (GMRES)</translation>
    </message>
    <message>
        <source>Iterative (BiCGStab)</source>
        <translation>Iterativ (BiCGStab)</translation>
    </message>
    <message>
        <source>Incomplete factors (ILU)</source>
        <translation>Unvollständige Faktoren (ILU)</translation>
    </message>
    <message>
        <source>Alternating directions, from both sides</source>
        <translation>Wechselnde Richtungen, von beiden Seiten</translation>
    </message>
    <message>
        <source>Alternating directions, without reordering</source>
        <translation>Wechselnde Richtungen, ohne Umordnung</translation>
    </message>
    <message>
        <source>None, without matrix</source>
        <translation>Keiner, ohne Matrix</translation>
    </message>
    <message>
        <source>None, with sparse matrix</source>
        <translation>Keiner, mit dünn besetzter Matrix</translation>
    </message>
</context>
<context>
    <name>HygJournal</name>
    <message>
        <source>The folder &apos;%1&apos; for unsaved changes cannot be made.</source>
        <translation>Der Ordner „%1“ für ungespeicherte Änderungen kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The folder &apos;%1&apos; for unsaved changes cannot be written.</source>
        <translation>In den Ordner „%1“ für ungespeicherte Änderungen kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The unsaved changes of &apos;%1&apos; are in use by another editor.</source>
        <translation>Die ungespeicherten Änderungen von „%1“ sind in einem anderen Editor in Gebrauch.</translation>
    </message>
    <message>
        <source>Unsaved changes cannot be kept for the case of a crash: %1</source>
        <translation>Ungespeicherte Änderungen können nicht für den Fall eines Absturzes gesichert werden: %1</translation>
    </message>
</context>
<context>
    <name>HygLayerModel</name>
    <message>
        <source>unknown material</source>
        <translation>unbekanntes Material</translation>
    </message>
    <message>
        <source>no material</source>
        <translation>kein Material</translation>
    </message>
    <message>
        <source>Thickness of the layer, usually 1 mm to 1 m. Its cells keep their proportions.</source>
        <translation>Dicke der Schicht, meist 1 mm bis 1 m. Ihre Zellen behalten ihre Verhältnisse.</translation>
    </message>
    <message>
        <source>Cells that the layer is divided into; the automatic discretization changes them</source>
        <translation>Zellen, in die die Schicht geteilt ist; die automatische Diskretisierung ändert sie</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>Thickness</source>
        <translation>Dicke</translation>
    </message>
    <message>
        <source>Cells</source>
        <translation>Zellen</translation>
    </message>
    <message>
        <source>%1
Double-click to choose another material.</source>
        <translation>%1
Doppelklick wählt ein anderes Material.</translation>
    </message>
</context>
<context>
    <name>HygLayerPanel</name>
    <message>
        <source>Layers from the outside to the inside</source>
        <translation>Schichten von außen nach innen</translation>
    </message>
    <message>
        <source>Add layer ...</source>
        <translation>Schicht hinzufügen ...</translation>
    </message>
    <message>
        <source>Add layer</source>
        <translation>Schicht hinzufügen</translation>
    </message>
    <message>
        <source>Add a layer of a material and thickness</source>
        <translation>Eine Schicht aus Material und Dicke hinzufügen</translation>
    </message>
    <message>
        <source>Remove layer</source>
        <translation>Schicht entfernen</translation>
    </message>
    <message>
        <source>Take the layer out (Delete)</source>
        <translation>Die Schicht herausnehmen (Entf)</translation>
    </message>
    <message>
        <source>Move outwards</source>
        <translation>Nach außen schieben</translation>
    </message>
    <message>
        <source>Move the layer towards the outside (Alt+Up); layers can be dragged too</source>
        <translation>Die Schicht nach außen schieben (Alt+Auf); Schichten lassen sich auch ziehen</translation>
    </message>
    <message>
        <source>Move inwards</source>
        <translation>Nach innen schieben</translation>
    </message>
    <message>
        <source>Move the layer towards the inside (Alt+Down); layers can be dragged too</source>
        <translation>Die Schicht nach innen schieben (Alt+Ab); Schichten lassen sich auch ziehen</translation>
    </message>
    <message numerus="yes">
        <source>%n layers, %1 in all</source>
        <translation>
            <numerusform>%n Schicht, zusammen %1</numerusform>
            <numerusform>%n Schichten, zusammen %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygLogModel</name>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>Debug</source>
        <translation>Diagnose</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
</context>
<context>
    <name>HygLogView</name>
    <message>
        <source>Information (%1)</source>
        <translation>Informationen (%1)</translation>
    </message>
    <message>
        <source>Warnings (%1)</source>
        <translation>Warnungen (%1)</translation>
    </message>
    <message>
        <source>Errors (%1)</source>
        <translation>Fehler (%1)</translation>
    </message>
    <message>
        <source>Debug (%1)</source>
        <translation>Diagnose (%1)</translation>
    </message>
    <message>
        <source>%1 of %2 shown</source>
        <translation>%1 von %2 angezeigt</translation>
    </message>
    <message>
        <source>Search messages</source>
        <translation>Meldungen durchsuchen</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>Copy the selected messages, or all that are shown</source>
        <translation>Ausgewählte oder alle angezeigten Meldungen kopieren</translation>
    </message>
    <message>
        <source>Copy messages</source>
        <translation>Meldungen kopieren</translation>
    </message>
    <message>
        <source>Remove all messages from this view; the log file keeps them</source>
        <translation>Alle Meldungen aus dieser Ansicht entfernen; in der Protokolldatei bleiben sie</translation>
    </message>
    <message>
        <source>Clear messages</source>
        <translation>Meldungen entfernen</translation>
    </message>
    <message>
        <source>Show or hide messages of this kind</source>
        <translation>Meldungen dieser Art ein- oder ausblenden</translation>
    </message>
</context>
<context>
    <name>HygMainWindow</name>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Recent projects</source>
        <translation>&amp;Letzte Projekte</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Appearance</source>
        <translation>&amp;Erscheinungsbild</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>E&amp;xtras</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Messages</source>
        <translation>Meldungen</translation>
    </message>
    <message>
        <source>&amp;New project…</source>
        <translation>&amp;Neues Projekt…</translation>
    </message>
    <message>
        <source>Start a new project</source>
        <translation>Ein neues Projekt beginnen</translation>
    </message>
    <message>
        <source>&amp;Open project…</source>
        <translation>Projekt ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>Open a project file</source>
        <translation>Eine Projektdatei öffnen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Find in messages</source>
        <translation>In Meldungen &amp;suchen</translation>
    </message>
    <message>
        <source>&amp;Preferences…</source>
        <translation>&amp;Einstellungen…</translation>
    </message>
    <message>
        <source>&amp;Full screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>Open &amp;log file</source>
        <translation>&amp;Protokolldatei öffnen</translation>
    </message>
    <message>
        <source>Opens the log file of this run in a text editor</source>
        <translation>Öffnet die Protokolldatei dieses Laufs in einem Texteditor</translation>
    </message>
    <message>
        <source>Open &amp;user data folder</source>
        <translation>Ordner mit &amp;Benutzerdaten öffnen</translation>
    </message>
    <message>
        <source>Opens the folder that holds your log file and your own data</source>
        <translation>Öffnet den Ordner mit Ihrer Protokolldatei und Ihren eigenen Daten</translation>
    </message>
    <message>
        <source>&amp;About Hygrion…</source>
        <translation>&amp;Über Hygrion…</translation>
    </message>
    <message>
        <source>About &amp;Qt…</source>
        <translation>Über &amp;Qt…</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Construction</source>
        <translation>Konstruktion</translation>
    </message>
    <message>
        <source>Conditions</source>
        <translation>Bedingungen</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Ausgaben</translation>
    </message>
    <message>
        <source>Simulation</source>
        <translation>Simulation</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Ergebnisse</translation>
    </message>
    <message>
        <source>Reports</source>
        <translation>Berichte</translation>
    </message>
    <message>
        <source>As the &amp;system</source>
        <translation>Wie das &amp;System</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>&amp;Hell</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;Dunkel</translation>
    </message>
    <message>
        <source>%1[*] – %2</source>
        <translation>%1[*] – %2</translation>
    </message>
    <message>
        <source>No project</source>
        <translation>Kein Projekt</translation>
    </message>
    <message>
        <source>Cannot open &apos;%1&apos;.</source>
        <translation>&apos;%1&apos; lässt sich nicht öffnen.</translation>
    </message>
    <message>
        <source>&amp;Messages</source>
        <translation>&amp;Meldungen</translation>
    </message>
    <message>
        <source>Show or hide the messages of this run</source>
        <translation>Meldungen dieses Laufs ein- oder ausblenden</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Write the project into its file</source>
        <translation>Schreibt das Projekt in seine Datei</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>Write the project into another file and go on with that one</source>
        <translation>Schreibt das Projekt in eine andere Datei und arbeitet mit dieser weiter</translation>
    </message>
    <message>
        <source>Save a &amp;copy…</source>
        <translation>&amp;Kopie speichern…</translation>
    </message>
    <message>
        <source>Write the project into another file and go on with this one</source>
        <translation>Schreibt das Projekt in eine andere Datei und arbeitet mit dieser hier weiter</translation>
    </message>
    <message>
        <source>Cl&amp;ose project</source>
        <translation>Projekt s&amp;chließen</translation>
    </message>
    <message>
        <source>Close the project and show the start page</source>
        <translation>Schließt das Projekt und zeigt die Startseite</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Take back the last change of the project</source>
        <translation>Nimmt die letzte Änderung des Projekts zurück</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Make the change again that was taken back last</source>
        <translation>Macht die Änderung wieder, die zuletzt zurückgenommen wurde</translation>
    </message>
    <message>
        <source>&amp;Undo: %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo: %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>Materials</source>
        <translation>Materialien</translation>
    </message>
    <message>
        <source>Climate</source>
        <translation>Klima</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>&amp;Import package…</source>
        <translation>Paket &amp;importieren…</translation>
    </message>
    <message>
        <source>Unpack a project package and open the project in it</source>
        <translation>Entpackt ein Projektpaket und öffnet das Projekt darin</translation>
    </message>
    <message>
        <source>&amp;Export package…</source>
        <translation>Paket &amp;exportieren…</translation>
    </message>
    <message>
        <source>Pack the project with its materials and climate data into one file</source>
        <translation>Packt das Projekt mit seinen Materialien und Klimadaten in eine Datei</translation>
    </message>
    <message>
        <source>Find a &amp;command…</source>
        <translation>&amp;Befehl suchen…</translation>
    </message>
    <message>
        <source>Find commands, materials and definitions by some letters of their names</source>
        <translation>Findet Befehle, Materialien und Definitionen nach einigen Buchstaben ihres Namens</translation>
    </message>
    <message>
        <source>&amp;Help on this page</source>
        <translation>&amp;Hilfe zu dieser Seite</translation>
    </message>
    <message>
        <source>The page of the user guide on what you are working with</source>
        <translation>Die Seite des Handbuchs zu dem, woran Sie arbeiten</translation>
    </message>
    <message>
        <source>&amp;User guide</source>
        <translation>Hand&amp;buch</translation>
    </message>
    <message>
        <source>The contents of the user guide</source>
        <translation>Der Inhalt des Handbuchs</translation>
    </message>
    <message>
        <source>%1 (read only)[*] – %2</source>
        <translation>%1 (schreibgeschützt)[*] – %2</translation>
    </message>
    <message>
        <source>&amp;History</source>
        <translation>&amp;Verlauf</translation>
    </message>
    <message>
        <source>Show or hide the changes that can be taken back</source>
        <translation>Zeigt oder verbirgt die Änderungen, die zurückgenommen werden können</translation>
    </message>
    <message>
        <source>Choose a line to go back or forth to that state</source>
        <translation>Eine Zeile wählen, um zu diesem Stand zurück- oder vorzugehen</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>Material</translation>
    </message>
    <message>
        <source>Interface</source>
        <translation>Oberfläche</translation>
    </message>
    <message>
        <source>Initial condition</source>
        <translation>Anfangsbedingung</translation>
    </message>
    <message>
        <source>Field condition</source>
        <translation>Feldbedingung</translation>
    </message>
    <message>
        <source>Contact condition</source>
        <translation>Kontaktbedingung</translation>
    </message>
    <message>
        <source>Boundary condition</source>
        <translation>Randbedingung</translation>
    </message>
    <message>
        <source>Climate condition</source>
        <translation>Klimabedingung</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Zeitplan</translation>
    </message>
    <message>
        <source>Output file</source>
        <translation>Ausgabedatei</translation>
    </message>
    <message>
        <source>Output grid</source>
        <translation>Ausgaberaster</translation>
    </message>
    <message>
        <source>Solution</source>
        <translation>Lösung</translation>
    </message>
    <message>
        <source>As opened</source>
        <translation>Wie geöffnet</translation>
    </message>
    <message>
        <source>Material database</source>
        <translation>Materialdatenbank</translation>
    </message>
    <message>
        <source>Sketch</source>
        <translation>Skizze</translation>
    </message>
</context>
<context>
    <name>HygMaterialChart</name>
    <message>
        <source>%1, direction %2</source>
        <translation>%1, Richtung %2</translation>
    </message>
    <message>
        <source>Without this function: %1</source>
        <translation>Ohne diese Funktion: %1</translation>
    </message>
    <message>
        <source>Function of the material</source>
        <translation>Funktion des Materials</translation>
    </message>
    <message>
        <source>Function that the chart shows; grey ones are not given</source>
        <translation>Funktion, die das Diagramm zeigt; graue sind nicht gegeben</translation>
    </message>
    <message>
        <source>Chart of the function</source>
        <translation>Diagramm der Funktion</translation>
    </message>
</context>
<context>
    <name>HygMaterialCurves</name>
    <message>
        <source>Moisture storage over relative humidity</source>
        <translation>Feuchtespeicherung über der relativen Luftfeuchte</translation>
    </message>
    <message>
        <source>Relative humidity</source>
        <translation>Relative Luftfeuchte</translation>
    </message>
    <message>
        <source>Moisture content</source>
        <translation>Feuchtegehalt</translation>
    </message>
    <message>
        <source>Moisture storage over capillary pressure</source>
        <translation>Feuchtespeicherung über dem Kapillardruck</translation>
    </message>
    <message>
        <source>pC = log10(pc / Pa)</source>
        <translation>pC = log10(pc / Pa)</translation>
    </message>
    <message>
        <source>Liquid conductivity Kl</source>
        <translation>Flüssigwasserleitfähigkeit Kl</translation>
    </message>
    <message>
        <source>Liquid conductivity</source>
        <translation>Flüssigwasserleitfähigkeit</translation>
    </message>
    <message>
        <source>Liquid diffusivity Dl</source>
        <translation>Flüssigwasserdiffusivität Dl</translation>
    </message>
    <message>
        <source>Liquid diffusivity</source>
        <translation>Flüssigwasserdiffusivität</translation>
    </message>
    <message>
        <source>Vapour permeability Kv</source>
        <translation>Dampfdurchlässigkeit Kv</translation>
    </message>
    <message>
        <source>Vapour permeability</source>
        <translation>Dampfdurchlässigkeit</translation>
    </message>
    <message>
        <source>Vapour diffusion resistance µ</source>
        <translation>Dampfdiffusionswiderstand µ</translation>
    </message>
    <message>
        <source>Resistance factor µ</source>
        <translation>Widerstandszahl µ</translation>
    </message>
    <message>
        <source>Thermal conductivity over moisture content</source>
        <translation>Wärmeleitfähigkeit über dem Feuchtegehalt</translation>
    </message>
    <message>
        <source>Thermal conductivity</source>
        <translation>Wärmeleitfähigkeit</translation>
    </message>
    <message>
        <source>Thermal conductivity over temperature</source>
        <translation>Wärmeleitfähigkeit über der Temperatur</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Thermal conductivity over ice content</source>
        <translation>Wärmeleitfähigkeit über dem Eisgehalt</translation>
    </message>
    <message>
        <source>Ice content</source>
        <translation>Eisgehalt</translation>
    </message>
    <message>
        <source>Air permeability Kg</source>
        <translation>Luftdurchlässigkeit Kg</translation>
    </message>
    <message>
        <source>Air permeability</source>
        <translation>Luftdurchlässigkeit</translation>
    </message>
    <message>
        <source>Thermal storage</source>
        <translation>Wärmespeicherung</translation>
    </message>
    <message>
        <source>Specific energy</source>
        <translation>Spezifische Energie</translation>
    </message>
    <message>
        <source>Vapour resistance of a foil, positive direction</source>
        <translation>Dampfwiderstand einer Folie, positive Richtung</translation>
    </message>
    <message>
        <source>Equivalent air layer</source>
        <translation>Äquivalente Luftschicht</translation>
    </message>
    <message>
        <source>Vapour resistance of a foil, negative direction</source>
        <translation>Dampfwiderstand einer Folie, negative Richtung</translation>
    </message>
</context>
<context>
    <name>HygMaterialDB</name>
    <message>
        <source>Copying the material</source>
        <translation>Das Material wird kopiert</translation>
    </message>
</context>
<context>
    <name>HygMaterialDBTableModel</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Number of the material, from the name of its file</source>
        <translation>Nummer des Materials, aus dem Namen seiner Datei</translation>
    </message>
    <message>
        <source>Favourites and files with problems</source>
        <translation>Favoriten und Dateien mit Problemen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Producer</source>
        <translation>Hersteller</translation>
    </message>
    <message>
        <source>Rho [kg/m3]</source>
        <translation>Rho [kg/m3]</translation>
    </message>
    <message>
        <source>Bulk density of the dry material; usually 15 to 2500 kg/m³</source>
        <translation>Rohdichte des trockenen Materials; meist 15 bis 2500 kg/m³</translation>
    </message>
    <message>
        <source>cp [J/kgK]</source>
        <translation>cp [J/kgK]</translation>
    </message>
    <message>
        <source>Specific heat capacity of the dry material; usually 800 to 2500 J/(kg·K)</source>
        <translation>Spezifische Wärmekapazität des trockenen Materials; meist 800 bis 2500 J/(kg·K)</translation>
    </message>
    <message>
        <source>Lambda [W/mK]</source>
        <translation>Lambda [W/mK]</translation>
    </message>
    <message>
        <source>Thermal conductivity of the dry material; usually 0.02 to 3 W/(m·K), metals up to 400 W/(m·K)</source>
        <translation>Wärmeleitfähigkeit des trockenen Materials; meist 0,02 bis 3 W/(m·K), Metalle bis 400 W/(m·K)</translation>
    </message>
    <message>
        <source>µ [---]</source>
        <translation>µ [---]</translation>
    </message>
    <message>
        <source>Resistance factor to the diffusion of water vapour; from 1 (still air) to 100000 (foils)</source>
        <translation>Widerstandszahl gegen die Diffusion von Wasserdampf; von 1 (ruhende Luft) bis 100000 (Folien)</translation>
    </message>
    <message>
        <source>W80 [kg/m3]</source>
        <translation>W80 [kg/m3]</translation>
    </message>
    <message>
        <source>Moisture content in balance with a relative humidity of 80 %; usually 0 to 150 kg/m³</source>
        <translation>Feuchtegehalt im Gleichgewicht mit 80 % relativer Luftfeuchte; meist 0 bis 150 kg/m³</translation>
    </message>
    <message>
        <source>WSat [kg/m3]</source>
        <translation>WSat [kg/m3]</translation>
    </message>
    <message>
        <source>Moisture content at saturation; usually 50 to 950 kg/m³</source>
        <translation>Feuchtegehalt bei Sättigung; meist 50 bis 950 kg/m³</translation>
    </message>
    <message>
        <source>Aw [kg/m2s05]</source>
        <translation>Aw [kg/m2s05]</translation>
    </message>
    <message>
        <source>Water uptake coefficient; usually 0.001 to 0.5 kg/(m²·√s)</source>
        <translation>Wasseraufnahmekoeffizient; meist 0,001 bis 0,5 kg/(m²·√s)</translation>
    </message>
    <message>
        <source>Material file path</source>
        <translation>Pfad der Materialdatei</translation>
    </message>
    <message>
        <source>This file cannot be read: %1</source>
        <translation>Diese Datei kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Other files have the same ID:
%1</source>
        <translation>Andere Dateien haben dieselbe ID:
%1</translation>
    </message>
    <message>
        <source>Favourite</source>
        <translation>Favorit</translation>
    </message>
</context>
<context>
    <name>HygMaterialDBWidget</name>
    <message>
        <source>Favourites</source>
        <translation>Favoriten</translation>
    </message>
    <message>
        <source>Show only favourites</source>
        <translation>Nur Favoriten zeigen</translation>
    </message>
    <message>
        <source>My materials</source>
        <translation>Eigene</translation>
    </message>
    <message>
        <source>Show only the materials of your own directory</source>
        <translation>Nur die Materialien des eigenen Verzeichnisses zeigen</translation>
    </message>
    <message>
        <source>Problems (%1)</source>
        <translation>Probleme (%1)</translation>
    </message>
    <message>
        <source>Show only files that cannot be read and files with the same ID</source>
        <translation>Nur Dateien zeigen, die nicht gelesen werden können oder dieselbe ID haben</translation>
    </message>
    <message>
        <source>&amp;New…</source>
        <translation>&amp;Neu …</translation>
    </message>
    <message>
        <source>Make a new material in your own database</source>
        <translation>Ein neues Material in der eigenen Datenbank anlegen</translation>
    </message>
    <message>
        <source>&amp;Edit…</source>
        <translation>&amp;Bearbeiten …</translation>
    </message>
    <message>
        <source>Open the material in the editor</source>
        <translation>Das Material im Editor öffnen</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>&amp;Duplizieren</translation>
    </message>
    <message>
        <source>Copy the selected materials into your own database</source>
        <translation>Die gewählten Materialien in die eigene Datenbank kopieren</translation>
    </message>
    <message>
        <source>De&amp;lete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Move the files of the selected materials to the trash; only for materials of your own</source>
        <translation>Die Dateien der gewählten Materialien in den Papierkorb verschieben; nur für eigene Materialien</translation>
    </message>
    <message>
        <source>&amp;Favourite</source>
        <translation>&amp;Favorit</translation>
    </message>
    <message>
        <source>Mark the selected materials as favourites, or take the marks away</source>
        <translation>Die gewählten Materialien als Favoriten kennzeichnen oder die Kennzeichen entfernen</translation>
    </message>
    <message>
        <source>&amp;Compare</source>
        <translation>&amp;Vergleichen</translation>
    </message>
    <message>
        <source>Keep the selected materials in the chart beside the current one, or take them out</source>
        <translation>Die gewählten Materialien neben dem aktuellen im Diagramm behalten oder herausnehmen</translation>
    </message>
    <message>
        <source>E&amp;nd comparison</source>
        <translation>Vergleich be&amp;enden</translation>
    </message>
    <message>
        <source>Show the current material alone</source>
        <translation>Das aktuelle Material allein zeigen</translation>
    </message>
    <message>
        <source>&amp;Read again</source>
        <translation>Neu &amp;einlesen</translation>
    </message>
    <message>
        <source>Look for files that have changed</source>
        <translation>Nach geänderten Dateien suchen</translation>
    </message>
    <message>
        <source>%1 materials</source>
        <translation>%1 Materialien</translation>
    </message>
    <message>
        <source>%1 of %2 materials</source>
        <translation>%1 von %2 Materialien</translation>
    </message>
    <message>
        <source>Reading materials: %1 of %2</source>
        <translation>Materialien werden gelesen: %1 von %2</translation>
    </message>
    <message>
        <source>%1 – reading was cancelled</source>
        <translation>%1 – das Lesen wurde abgebrochen</translation>
    </message>
    <message>
        <source>No material selected</source>
        <translation>Kein Material gewählt</translation>
    </message>
    <message>
        <source>ID %1</source>
        <translation>ID %1</translation>
    </message>
    <message>
        <source>your own database</source>
        <translation>eigene Datenbank</translation>
    </message>
    <message>
        <source>built-in database</source>
        <translation>mitgelieferte Datenbank</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Quelle: %1</translation>
    </message>
    <message>
        <source>New material</source>
        <translation>Neues Material</translation>
    </message>
    <message>
        <source>Delete materials</source>
        <translation>Materialien löschen</translation>
    </message>
    <message>
        <source>Move the files of these materials to the trash?

%1</source>
        <translation>Die Dateien dieser Materialien in den Papierkorb verschieben?

%1</translation>
    </message>
    <message>
        <source>Cannot move &apos;%1&apos; to the trash.</source>
        <translation>„%1“ kann nicht in den Papierkorb verschoben werden.</translation>
    </message>
    <message>
        <source>At most %1 materials can be compared.</source>
        <translation>Höchstens %1 Materialien können verglichen werden.</translation>
    </message>
    <message>
        <source>All categories</source>
        <translation>Alle Kategorien</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Search name or producer</source>
        <translation>Name oder Hersteller suchen</translation>
    </message>
    <message>
        <source>Every word must be found; * stands for any characters, ? for one</source>
        <translation>Jedes Wort muss vorkommen; * steht für beliebige Zeichen, ? für eines</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Show the materials of one category</source>
        <translation>Die Materialien einer Kategorie zeigen</translation>
    </message>
    <message>
        <source>Materials</source>
        <translation>Materialien</translation>
    </message>
    <message>
        <source>Progress of reading</source>
        <translation>Fortschritt des Lesens</translation>
    </message>
    <message>
        <source>Stop reading</source>
        <translation>Lesen abbrechen</translation>
    </message>
    <message>
        <source>No material fits. &lt;a href=&quot;all&quot;&gt;Show all&lt;/a&gt;</source>
        <translation>Kein Material passt. &lt;a href=&quot;all&quot;&gt;Alle zeigen&lt;/a&gt;</translation>
    </message>
</context>
<context>
    <name>HygMaterialDocument</name>
    <message>
        <source>Functions, models or measured data would not be read as they stand here.</source>
        <translation>Funktionen, Modelle oder Messdaten würden nicht so gelesen, wie sie hier stehen.</translation>
    </message>
    <message>
        <source>Writing the material</source>
        <translation>Das Material wird geschrieben</translation>
    </message>
</context>
<context>
    <name>HygMaterialEditor</name>
    <message>
        <source>Built-in material</source>
        <translation>Mitgeliefertes Material</translation>
    </message>
    <message>
        <source>The material is located in the built-in material database. Would you like to create a copy and edit the duplicated material instead?</source>
        <translation>Das Material liegt in der mitgelieferten Materialdatenbank. Möchten Sie eine Kopie anlegen und stattdessen die Kopie bearbeiten?</translation>
    </message>
    <message>
        <source>Write-protected material</source>
        <translation>Schreibgeschütztes Material</translation>
    </message>
    <message>
        <source>The selected material file is write-protected, since it is part of the built-in material database. While you can inspect and even change properties of the material in the dialog, you may not save the changes. If you intend to create a modified version of the material, duplicate the material first!</source>
        <translation>Die gewählte Materialdatei ist schreibgeschützt, da sie zur mitgelieferten Materialdatenbank gehört. Sie können die Eigenschaften des Materials im Dialog ansehen und auch ändern, die Änderungen aber nicht speichern. Wenn Sie das Material abwandeln möchten, duplizieren Sie es zuerst!</translation>
    </message>
    <message>
        <source>The file has changed</source>
        <translation>Die Datei hat sich geändert</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; was changed or removed by another program since it was read. Replace it?</source>
        <translation>Die Datei „%1“ wurde seit dem Lesen von einem anderen Programm geändert oder entfernt. Soll sie ersetzt werden?</translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Nicht gespeicherte Änderungen</translation>
    </message>
    <message>
        <source>Save the changes of the material?</source>
        <translation>Sollen die Änderungen am Material gespeichert werden?</translation>
    </message>
    <message>
        <source>Cannot be saved: %1</source>
        <translation>Kann nicht gespeichert werden: %1</translation>
    </message>
    <message>
        <source>The x values must increase from row to row.</source>
        <translation>Die x-Werte müssen von Zeile zu Zeile zunehmen.</translation>
    </message>
    <message>
        <source>The check of the material has no findings.</source>
        <translation>Die Prüfung des Materials hat nichts gefunden.</translation>
    </message>
    <message>
        <source>Findings of the check: %1</source>
        <translation>Befunde der Prüfung: %1</translation>
    </message>
    <message>
        <source>%1[*] – material %2</source>
        <translation>%1[*] – Material %2</translation>
    </message>
    <message>
        <source>New material</source>
        <translation>Neues Material</translation>
    </message>
    <message>
        <source>&amp;General</source>
        <translation>&amp;Allgemein</translation>
    </message>
    <message>
        <source>&amp;Parameters</source>
        <translation>&amp;Kennwerte</translation>
    </message>
    <message>
        <source>&amp;Functions</source>
        <translation>&amp;Funktionen</translation>
    </message>
    <message>
        <source>&amp;Curves</source>
        <translation>K&amp;urven</translation>
    </message>
    <message>
        <source>The functions as a calculation uses them</source>
        <translation>Die Funktionen, wie eine Berechnung sie verwendet</translation>
    </message>
    <message>
        <source>Write-protected: duplicate the material to keep changes</source>
        <translation>Schreibgeschützt: Duplizieren Sie das Material, um Änderungen zu behalten</translation>
    </message>
    <message>
        <source>Findings of the check</source>
        <translation>Befunde der Prüfung</translation>
    </message>
    <message>
        <source>Click to see the field</source>
        <translation>Klicken, um das Feld zu sehen</translation>
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
        <source>Write the material into its file (%1)</source>
        <translation>Das Material in seine Datei schreiben (%1)</translation>
    </message>
    <message>
        <source>Reading the material</source>
        <translation>Das Material wird gelesen</translation>
    </message>
    <message>
        <source>A calculation cannot use it: %1</source>
        <translation>Eine Berechnung kann es nicht verwenden: %1</translation>
    </message>
    <message>
        <source>&amp;Models</source>
        <translation>&amp;Modelle</translation>
    </message>
    <message>
        <source>Measured &amp;data</source>
        <translation>Mess&amp;daten</translation>
    </message>
    <message>
        <source>Functions that are made out of a few parameters</source>
        <translation>Funktionen, die aus wenigen Kennwerten entstehen</translation>
    </message>
    <message>
        <source>Results of experiments, kept in the file as they stand</source>
        <translation>Ergebnisse von Versuchen, die in der Datei bleiben, wie sie stehen</translation>
    </message>
    <message>
        <source>Measured data</source>
        <translation>Messdaten</translation>
    </message>
</context>
<context>
    <name>HygMaterialFindings</name>
    <message>
        <source>The moisture content must not fall with the humidity, as it does in row %1.</source>
        <translation>Der Feuchtegehalt darf mit der Luftfeuchte nicht fallen, wie er es in Zeile %1 tut.</translation>
    </message>
    <message>
        <source>The moisture content must not rise with the capillary pressure, as it does in row %1.</source>
        <translation>Der Feuchtegehalt darf mit dem Kapillardruck nicht steigen, wie er es in Zeile %1 tut.</translation>
    </message>
    <message>
        <source>The conductivity must not fall with the moisture content, as it does in row %1.</source>
        <translation>Die Leitfähigkeit darf mit dem Feuchtegehalt nicht fallen, wie sie es in Zeile %1 tut.</translation>
    </message>
    <message>
        <source>The diffusivity must not fall with the moisture content, as it does in row %1.</source>
        <translation>Die Diffusivität darf mit dem Feuchtegehalt nicht fallen, wie sie es in Zeile %1 tut.</translation>
    </message>
</context>
<context>
    <name>HygMaterialFunctionPage</name>
    <message>
        <source>Remove function</source>
        <translation>Funktion entfernen</translation>
    </message>
    <message>
        <source>Remove all points of the function</source>
        <translation>Alle Punkte der Funktion entfernen</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>Functions</source>
        <translation>Funktionen</translation>
    </message>
    <message>
        <source>Functions that a material can have; bold ones have points</source>
        <translation>Funktionen, die ein Material haben kann; fette haben Punkte</translation>
    </message>
    <message>
        <source>Points of the function</source>
        <translation>Punkte der Funktion</translation>
    </message>
    <message>
        <source>Chart of the function</source>
        <translation>Diagramm der Funktion</translation>
    </message>
    <message>
        <source>Drag a point to move it</source>
        <translation>Einen Punkt ziehen, um ihn zu verschieben</translation>
    </message>
</context>
<context>
    <name>HygMaterialFunctions</name>
    <message>
        <source>Sorption isotherm</source>
        <translation>Sorptionsisotherme</translation>
    </message>
    <message>
        <source>Relative humidity</source>
        <translation>Relative Luftfeuchte</translation>
    </message>
    <message>
        <source>Moisture content</source>
        <translation>Feuchtegehalt</translation>
    </message>
    <message>
        <source>Moisture retention, desorption</source>
        <translation>Feuchteretention, Desorption</translation>
    </message>
    <message>
        <source>pC = log10(pc / Pa)</source>
        <translation>pC = log10(pc / Pa)</translation>
    </message>
    <message>
        <source>Moisture retention, desorption, inverse</source>
        <translation>Feuchteretention, Desorption, Umkehrung</translation>
    </message>
    <message>
        <source>Moisture retention, adsorption</source>
        <translation>Feuchteretention, Adsorption</translation>
    </message>
    <message>
        <source>Moisture retention, adsorption, inverse</source>
        <translation>Feuchteretention, Adsorption, Umkehrung</translation>
    </message>
    <message>
        <source>mwu over temperature (kept, not used)</source>
        <translation>mwu über der Temperatur (wird bewahrt, nicht verwendet)</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>DE over pC (kept, not used)</source>
        <translation>DE über pC (wird bewahrt, nicht verwendet)</translation>
    </message>
    <message>
        <source>Liquid conductivity</source>
        <translation>Flüssigwasserleitfähigkeit</translation>
    </message>
    <message>
        <source>log10(Kl / s)</source>
        <translation>log10(Kl / s)</translation>
    </message>
    <message>
        <source>Liquid diffusivity</source>
        <translation>Flüssigwasserdiffusivität</translation>
    </message>
    <message>
        <source>log10(Dl / (m2/s))</source>
        <translation>log10(Dl / (m2/s))</translation>
    </message>
    <message>
        <source>Vapour permeability</source>
        <translation>Dampfdurchlässigkeit</translation>
    </message>
    <message>
        <source>log10(Kv / s)</source>
        <translation>log10(Kv / s)</translation>
    </message>
    <message>
        <source>Vapour diffusion resistance</source>
        <translation>Dampfdiffusionswiderstand</translation>
    </message>
    <message>
        <source>Resistance factor µ</source>
        <translation>Widerstandszahl µ</translation>
    </message>
    <message>
        <source>Thermal conductivity over moisture content</source>
        <translation>Wärmeleitfähigkeit über dem Feuchtegehalt</translation>
    </message>
    <message>
        <source>Thermal conductivity</source>
        <translation>Wärmeleitfähigkeit</translation>
    </message>
    <message>
        <source>Thermal conductivity over temperature</source>
        <translation>Wärmeleitfähigkeit über der Temperatur</translation>
    </message>
    <message>
        <source>Thermal conductivity over ice content</source>
        <translation>Wärmeleitfähigkeit über dem Eisgehalt</translation>
    </message>
    <message>
        <source>Ice content</source>
        <translation>Eisgehalt</translation>
    </message>
    <message>
        <source>Air permeability</source>
        <translation>Luftdurchlässigkeit</translation>
    </message>
    <message>
        <source>Specific energy</source>
        <translation>Spezifische Energie</translation>
    </message>
    <message>
        <source>Vapour resistance of a foil, positive direction</source>
        <translation>Dampfwiderstand einer Folie, positive Richtung</translation>
    </message>
    <message>
        <source>Equivalent air layer</source>
        <translation>Äquivalente Luftschicht</translation>
    </message>
    <message>
        <source>Vapour resistance of a foil, negative direction</source>
        <translation>Dampfwiderstand einer Folie, negative Richtung</translation>
    </message>
    <message>
        <source>%1, direction %2</source>
        <translation>%1, Richtung %2</translation>
    </message>
</context>
<context>
    <name>HygMaterialIdentityForm</name>
    <message>
        <source>Name (English)</source>
        <translation>Name (englisch)</translation>
    </message>
    <message>
        <source>Shown in English and where no other language is given</source>
        <translation>Wird auf Englisch gezeigt und wo keine andere Sprache gegeben ist</translation>
    </message>
    <message>
        <source>Name (German)</source>
        <translation>Name (deutsch)</translation>
    </message>
    <message>
        <source>Shown in German</source>
        <translation>Wird auf Deutsch gezeigt</translation>
    </message>
    <message>
        <source>Producer</source>
        <translation>Hersteller</translation>
    </message>
    <message>
        <source>Who makes the material; the search finds it</source>
        <translation>Wer das Material herstellt; die Suche findet ihn</translation>
    </message>
    <message>
        <source>Product number</source>
        <translation>Produktnummer</translation>
    </message>
    <message>
        <source>Number under which the producer sells the material</source>
        <translation>Nummer, unter der der Hersteller das Material verkauft</translation>
    </message>
    <message>
        <source>Remarks (English)</source>
        <translation>Bemerkungen (englisch)</translation>
    </message>
    <message>
        <source>What a user of the material should know</source>
        <translation>Was Anwender des Materials wissen sollten</translation>
    </message>
    <message>
        <source>Remarks (German)</source>
        <translation>Bemerkungen (deutsch)</translation>
    </message>
    <message>
        <source>Source of the data</source>
        <translation>Quelle der Daten</translation>
    </message>
    <message>
        <source>Data sheet, standard or report from which the values are taken</source>
        <translation>Datenblatt, Norm oder Bericht, woraus die Werte stammen</translation>
    </message>
    <message>
        <source>Laboratory</source>
        <translation>Labor</translation>
    </message>
    <message>
        <source>Where the material was measured</source>
        <translation>Wo das Material gemessen wurde</translation>
    </message>
    <message>
        <source>Investigator</source>
        <translation>Bearbeiter</translation>
    </message>
    <message>
        <source>Who measured the material</source>
        <translation>Wer das Material gemessen hat</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>When the data were put together, as 31.12.24</source>
        <translation>Wann die Daten zusammengestellt wurden, als 31.12.24</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Land</translation>
    </message>
    <message>
        <source>Where the material comes from</source>
        <translation>Woher das Material kommt</translation>
    </message>
    <message>
        <source>Rights</source>
        <translation>Rechte</translation>
    </message>
    <message>
        <source>Who owns the data</source>
        <translation>Wem die Daten gehören</translation>
    </message>
    <message>
        <source>Change colour</source>
        <translation>Farbe ändern</translation>
    </message>
    <message>
        <source>Change hatching</source>
        <translation>Schraffur ändern</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 ändern</translation>
    </message>
    <message>
        <source>Change category</source>
        <translation>Kategorie ändern</translation>
    </message>
    <message>
        <source>Change flags</source>
        <translation>Art des Materials ändern</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Second category</source>
        <translation>Zweite Kategorie</translation>
    </message>
    <message>
        <source>Third category</source>
        <translation>Dritte Kategorie</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Group under which the database lists the material</source>
        <translation>Gruppe, unter der die Datenbank das Material führt</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Colour of the material in drawings</source>
        <translation>Farbe des Materials in Zeichnungen</translation>
    </message>
    <message>
        <source>Hatching</source>
        <translation>Schraffur</translation>
    </message>
    <message>
        <source>Hatching of the material in drawings, after ISO 128-50</source>
        <translation>Schraffur des Materials in Zeichnungen, nach ISO 128-50</translation>
    </message>
    <message>
        <source>Kind of material</source>
        <translation>Art des Materials</translation>
    </message>
</context>
<context>
    <name>HygMaterialMeasuredTable</name>
    <message>
        <source>new line</source>
        <translation>neue Zeile</translation>
    </message>
    <message>
        <source>Insert line</source>
        <translation>Zeile einfügen</translation>
    </message>
    <message>
        <source>Remove lines</source>
        <translation>Zeilen entfernen</translation>
    </message>
    <message>
        <source>Line %1 would begin another section of the file: &apos;%2&apos;.</source>
        <translation>Zeile %1 würde einen anderen Abschnitt der Datei beginnen: „%2“.</translation>
    </message>
    <message>
        <source>Measured data have at most %1 lines.</source>
        <translation>Messdaten haben höchstens %1 Zeilen.</translation>
    </message>
    <message>
        <source>Paste lines</source>
        <translation>Zeilen einfügen</translation>
    </message>
    <message>
        <source>Keyword or line</source>
        <translation>Schlüsselwort oder Zeile</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>A line cannot be empty; remove it instead.</source>
        <translation>Eine Zeile kann nicht leer sein; entfernen Sie sie stattdessen.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; would begin another section of the file.</source>
        <translation>„%1“ würde einen anderen Abschnitt der Datei beginnen.</translation>
    </message>
    <message>
        <source>Change line</source>
        <translation>Zeile ändern</translation>
    </message>
</context>
<context>
    <name>HygMaterialModelPage</name>
    <message>
        <source>The material has a model of each kind</source>
        <translation>Das Material hat von jeder Art ein Modell</translation>
    </message>
    <message>
        <source>Add model</source>
        <translation>Modell hinzufügen</translation>
    </message>
    <message>
        <source>Remove model</source>
        <translation>Modell entfernen</translation>
    </message>
    <message>
        <source>The material has no models. A model makes a function out of a few parameters; it counts where the function itself is not given as points.</source>
        <translation>Das Material hat keine Modelle. Ein Modell macht aus wenigen Kennwerten eine Funktion; es gilt, wo die Funktion selbst nicht durch Punkte gegeben ist.</translation>
    </message>
    <message numerus="yes">
        <source>The model has %n tabulated functions of its own, which are kept as they stand.</source>
        <translation>
            <numerusform>Das Modell hat eine eigene tabellierte Funktion, die bleibt, wie sie steht.</numerusform>
            <numerusform>Das Modell hat %n eigene tabellierte Funktionen, die bleiben, wie sie stehen.</numerusform>
        </translation>
    </message>
    <message>
        <source>Add a model to the material</source>
        <translation>Dem Material ein Modell hinzufügen</translation>
    </message>
    <message>
        <source>Remove the chosen model</source>
        <translation>Das gewählte Modell entfernen</translation>
    </message>
    <message>
        <source>Models</source>
        <translation>Modelle</translation>
    </message>
    <message>
        <source>Models of the material</source>
        <translation>Modelle des Materials</translation>
    </message>
    <message>
        <source>Parameters of the model</source>
        <translation>Kennwerte des Modells</translation>
    </message>
</context>
<context>
    <name>HygMaterialModelTable</name>
    <message>
        <source>A model has at most %1 modes.</source>
        <translation>Ein Modell hat höchstens %1 Moden.</translation>
    </message>
    <message>
        <source>Insert mode</source>
        <translation>Mode einfügen</translation>
    </message>
    <message>
        <source>Remove modes</source>
        <translation>Moden entfernen</translation>
    </message>
    <message>
        <source>Line %1 does not hold %2 numbers: &apos;%3&apos;.</source>
        <translation>Zeile %1 enthält nicht %2 Zahlen: „%3“.</translation>
    </message>
    <message>
        <source>Paste modes</source>
        <translation>Moden einfügen</translation>
    </message>
    <message>
        <source>A mode without this value is left out.</source>
        <translation>Eine Mode ohne diesen Wert bleibt unberücksichtigt.</translation>
    </message>
    <message>
        <source>(new parameter)</source>
        <translation>(neuer Kennwert)</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Kennwert</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>Bedeutung</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a number.</source>
        <translation>„%1“ ist keine Zahl.</translation>
    </message>
    <message>
        <source>Change mode</source>
        <translation>Mode ändern</translation>
    </message>
    <message>
        <source>&apos;%1&apos; cannot be the name of a new parameter.</source>
        <translation>„%1“ kann nicht der Name eines neuen Kennwerts sein.</translation>
    </message>
    <message>
        <source>Add parameter %1</source>
        <translation>Kennwert %1 hinzufügen</translation>
    </message>
    <message>
        <source>The value is too long, or more than one line.</source>
        <translation>Der Wert ist zu lang oder mehr als eine Zeile.</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 ändern</translation>
    </message>
</context>
<context>
    <name>HygMaterialModels</name>
    <message>
        <source>Weight</source>
        <translation>Gewicht</translation>
    </message>
    <message>
        <source>Pore radius</source>
        <translation>Porenradius</translation>
    </message>
    <message>
        <source>Standard deviation</source>
        <translation>Standardabweichung</translation>
    </message>
    <message>
        <source>decades of pC</source>
        <translation>Dekaden von pC</translation>
    </message>
    <message>
        <source>Share of pores that lie parallel</source>
        <translation>Anteil der parallel liegenden Poren</translation>
    </message>
    <message>
        <source>Liquid conductivity (kept, not used)</source>
        <translation>Flüssigwasserleitfähigkeit (nur aufbewahrt)</translation>
    </message>
    <message>
        <source>Scale of conductivity (kept, not used)</source>
        <translation>Skalierung der Leitfähigkeit (nur aufbewahrt)</translation>
    </message>
    <message>
        <source>Unsaturated (kept, not used)</source>
        <translation>Ungesättigt (nur aufbewahrt)</translation>
    </message>
    <message>
        <source>Adsorption branch (kept, not used)</source>
        <translation>Adsorptionsast (nur aufbewahrt)</translation>
    </message>
    <message>
        <source>Largest pC (kept, not used)</source>
        <translation>Größter pC (nur aufbewahrt)</translation>
    </message>
    <message>
        <source>Additional content (kept, not used)</source>
        <translation>Zusätzlicher Gehalt (nur aufbewahrt)</translation>
    </message>
    <message>
        <source>Gauss model of moisture retention</source>
        <translation>Gauß-Modell der Feuchtespeicherung</translation>
    </message>
    <message>
        <source>Van Genuchten model of moisture retention (not calculated with)</source>
        <translation>Van-Genuchten-Modell der Feuchtespeicherung (wird nicht gerechnet)</translation>
    </message>
    <message>
        <source>Serial-parallel model of vapour transport</source>
        <translation>Seriell-parallel-Modell des Dampftransports</translation>
    </message>
    <message>
        <source>Moisture storage</source>
        <translation>Feuchtespeicherung</translation>
    </message>
    <message>
        <source>Moisture transport</source>
        <translation>Feuchtetransport</translation>
    </message>
    <message>
        <source>Thermal storage</source>
        <translation>Wärmespeicherung</translation>
    </message>
    <message>
        <source>Heat transport</source>
        <translation>Wärmetransport</translation>
    </message>
    <message>
        <source>Air transport</source>
        <translation>Lufttransport</translation>
    </message>
    <message>
        <source>Adaptive foil</source>
        <translation>Feuchteadaptive Folie</translation>
    </message>
</context>
<context>
    <name>HygMaterialNotice</name>
    <message>
        <source>choose another file</source>
        <translation>eine andere Datei wählen</translation>
    </message>
</context>
<context>
    <name>HygMaterialParameterForm</name>
    <message>
        <source>usually 15 to 2500 kg/m³, metals up to 8900 kg/m³</source>
        <translation>meist 15 bis 2500 kg/m³, Metalle bis 8900 kg/m³</translation>
    </message>
    <message>
        <source>usually 800 to 2500 J/(kg·K), metals from 380 J/(kg·K)</source>
        <translation>meist 800 bis 2500 J/(kg·K), Metalle ab 380 J/(kg·K)</translation>
    </message>
    <message>
        <source>0.01 to 0.99 m³/m³, not below the effective saturation</source>
        <translation>0,01 bis 0,99 m³/m³, nicht unter der effektiven Sättigung</translation>
    </message>
    <message>
        <source>0.01 to 0.99 m³/m³, not above the porosity</source>
        <translation>0,01 bis 0,99 m³/m³, nicht über der Porosität</translation>
    </message>
    <message>
        <source>0.01 to 0.9 m³/m³, not above the effective saturation</source>
        <translation>0,01 bis 0,9 m³/m³, nicht über der effektiven Sättigung</translation>
    </message>
    <message>
        <source>0 to 0.9 m³/m³</source>
        <translation>0 bis 0,9 m³/m³</translation>
    </message>
    <message>
        <source>usually 0.0005 to 0.15 m³/m³</source>
        <translation>meist 0,0005 bis 0,15 m³/m³</translation>
    </message>
    <message>
        <source>usually 0.02 to 3 W/(m·K), metals up to 400 W/(m·K)</source>
        <translation>meist 0,02 bis 3 W/(m·K), Metalle bis 400 W/(m·K)</translation>
    </message>
    <message>
        <source>usually 0.001 to 0.5 kg/(m²·√s)</source>
        <translation>meist 0,001 bis 0,5 kg/(m²·√s)</translation>
    </message>
    <message>
        <source>1 (still air) to 100000 (foils)</source>
        <translation>1 (ruhende Luft) bis 100000 (Folien)</translation>
    </message>
    <message>
        <source>0.01 to 1500 m, for thin layers</source>
        <translation>0,01 bis 1500 m, für dünne Schichten</translation>
    </message>
    <message>
        <source>usually 1e-12 to 1e-7 s</source>
        <translation>meist 1e-12 bis 1e-7 s</translation>
    </message>
    <message>
        <source>usually 1e-10 to 1e-4 m²/s</source>
        <translation>meist 1e-10 bis 1e-4 m²/s</translation>
    </message>
    <message>
        <source>usually 1e-12 to 1e-3 s</source>
        <translation>meist 1e-12 bis 1e-3 s</translation>
    </message>
    <message>
        <source>usually 0.003 to 0.2 mm/(m·K)</source>
        <translation>meist 0,003 bis 0,2 mm/(m·K)</translation>
    </message>
    <message>
        <source>usually 0 to 0.5 m³·m/(m³·m)</source>
        <translation>meist 0 bis 0,5 m³·m/(m³·m)</translation>
    </message>
    <message>
        <source>usually 0.1 to 0.25 m³/m³</source>
        <translation>meist 0,1 bis 0,25 m³/m³</translation>
    </message>
    <message>
        <source>Storage</source>
        <translation>Speicherung</translation>
    </message>
    <message>
        <source>Transport</source>
        <translation>Transport</translation>
    </message>
    <message>
        <source>Transport in directions v and w, where it differs</source>
        <translation>Transport in den Richtungen v und w, wo er abweicht</translation>
    </message>
    <message>
        <source>Mechanics</source>
        <translation>Mechanik</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>%1 ändern</translation>
    </message>
    <message>
        <source>not given</source>
        <translation>nicht gegeben</translation>
    </message>
    <message>
        <source>0 to 1: the share of the side from which vapour comes; 0.5 if not given</source>
        <translation>0 bis 1: der Anteil der Seite, von der der Dampf kommt; 0,5, wenn nicht gegeben</translation>
    </message>
    <message>
        <source>a of the factor a phi² + b phi + c; 0 if not given</source>
        <translation>a des Faktors a phi² + b phi + c; 0, wenn nicht gegeben</translation>
    </message>
    <message>
        <source>b of the factor a phi² + b phi + c; 0 if not given</source>
        <translation>b des Faktors a phi² + b phi + c; 0, wenn nicht gegeben</translation>
    </message>
    <message>
        <source>c of the factor a phi² + b phi + c; 1 if not given</source>
        <translation>c des Faktors a phi² + b phi + c; 1, wenn nicht gegeben</translation>
    </message>
    <message>
        <source>Adaptive foil: its resistance over humidity is a function</source>
        <translation>Feuchteadaptive Folie: Ihr Widerstand über der Feuchte ist eine Funktion</translation>
    </message>
</context>
<context>
    <name>HygMaterialPointModel</name>
    <message>
        <source>Insert point</source>
        <translation>Punkt einfügen</translation>
    </message>
    <message>
        <source>Remove points</source>
        <translation>Punkte entfernen</translation>
    </message>
    <message>
        <source>Move point</source>
        <translation>Punkt verschieben</translation>
    </message>
    <message>
        <source>Line %1 does not hold two numbers: &apos;%2&apos;.</source>
        <translation>Zeile %1 enthält nicht zwei Zahlen: „%2“.</translation>
    </message>
    <message>
        <source>A function has at most %1 points.</source>
        <translation>Eine Funktion hat höchstens %1 Punkte.</translation>
    </message>
    <message>
        <source>Paste points</source>
        <translation>Punkte einfügen</translation>
    </message>
    <message>
        <source>Remove function</source>
        <translation>Funktion entfernen</translation>
    </message>
    <message>
        <source>The value must be greater than the one above.</source>
        <translation>Der Wert muss größer sein als der darüber.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a number.</source>
        <translation>„%1“ ist keine Zahl.</translation>
    </message>
    <message>
        <source>Change point</source>
        <translation>Punkt ändern</translation>
    </message>
    <message>
        <source>Reading the points</source>
        <translation>Die Punkte werden gelesen</translation>
    </message>
</context>
<context>
    <name>HygMaterialTable</name>
    <message>
        <source>Insert row</source>
        <translation>Zeile einfügen</translation>
    </message>
    <message>
        <source>Insert a row behind the current one (Ins)</source>
        <translation>Eine Zeile hinter der aktuellen einfügen (Einfg)</translation>
    </message>
    <message>
        <source>Remove rows</source>
        <translation>Zeilen entfernen</translation>
    </message>
    <message>
        <source>Remove the selected rows (Del)</source>
        <translation>Die gewählten Zeilen entfernen (Entf)</translation>
    </message>
    <message>
        <source>Copy rows</source>
        <translation>Zeilen kopieren</translation>
    </message>
    <message>
        <source>Copy all rows, for a spreadsheet (Ctrl+C)</source>
        <translation>Alle Zeilen kopieren, für eine Tabellenkalkulation (Strg+C)</translation>
    </message>
    <message>
        <source>Paste rows</source>
        <translation>Zeilen einfügen</translation>
    </message>
    <message>
        <source>Replace all rows by those in the clipboard (Ctrl+V)</source>
        <translation>Alle Zeilen durch die der Zwischenablage ersetzen (Strg+V)</translation>
    </message>
</context>
<context>
    <name>HygMeasuredData</name>
    <message>
        <source>Line %1 has more than %2 columns.</source>
        <translation>Zeile %1 hat mehr als %2 Spalten.</translation>
    </message>
    <message>
        <source>Line %1 has one column only.</source>
        <translation>Zeile %1 hat nur eine Spalte.</translation>
    </message>
    <message>
        <source>Line %1: &apos;%2&apos; is no time.</source>
        <translation>Zeile %1: „%2“ ist keine Zeit.</translation>
    </message>
    <message>
        <source>Line %1: time goes back.</source>
        <translation>Zeile %1: Die Zeit läuft rückwärts.</translation>
    </message>
    <message>
        <source>The file holds no values.</source>
        <translation>Die Datei enthält keine Werte.</translation>
    </message>
</context>
<context>
    <name>HygMessageBar</name>
    <message>
        <source>Close this message</source>
        <translation>Diese Meldung schließen</translation>
    </message>
</context>
<context>
    <name>HygNewLayerDialog</name>
    <message>
        <source>Add layer</source>
        <translation>Schicht hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Material</source>
        <translation>&amp;Material</translation>
    </message>
    <message>
        <source>Search, for example brick</source>
        <translation>Suchen, zum Beispiel Ziegel</translation>
    </message>
    <message>
        <source>Materials of the project and of the database</source>
        <translation>Materialien des Projekts und der Datenbank</translation>
    </message>
    <message>
        <source>Thickness of the layer, usually 1 mm to 1 m; any unit of length can be typed</source>
        <translation>Dicke der Schicht, meist 1 mm bis 1 m; jede Längeneinheit kann getippt werden</translation>
    </message>
    <message>
        <source>&amp;Thickness</source>
        <translation>&amp;Dicke</translation>
    </message>
    <message>
        <source>Where the layer comes to stand; the outside is on the left</source>
        <translation>Wo die Schicht zu stehen kommt; außen ist links</translation>
    </message>
    <message>
        <source>&amp;Place</source>
        <translation>&amp;Ort</translation>
    </message>
    <message>
        <source>&amp;Divide into cells</source>
        <translation>In &amp;Zellen teilen</translation>
    </message>
    <message>
        <source>Cells of 1 mm at the borders of the layer that grow towards its middle; it can be changed later</source>
        <translation>Zellen von 1 mm an den Rändern der Schicht, die zur Mitte hin wachsen; das lässt sich später ändern</translation>
    </message>
    <message>
        <source>Add and &amp;next</source>
        <translation>Hinzufügen und &amp;weiter</translation>
    </message>
    <message>
        <source>Add this layer and choose another one, further inside</source>
        <translation>Diese Schicht hinzufügen und die nächste wählen, weiter innen</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>In the project already</source>
        <translation>Schon im Projekt</translation>
    </message>
    <message>
        <source>Words that the material&apos;s name or category holds; Up and Down choose in the list</source>
        <translation>Wörter aus dem Namen oder der Kategorie des Materials; Auf und Ab wählen in der Liste</translation>
    </message>
</context>
<context>
    <name>HygOutputDialog</name>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>Name of the output and of its result file</source>
        <translation>Name der Ausgabe und ihrer Ergebnisdatei</translation>
    </message>
    <message>
        <source>&amp;Quantity</source>
        <translation>&amp;Größe</translation>
    </message>
    <message>
        <source>&amp;Unit</source>
        <translation>&amp;Einheit</translation>
    </message>
    <message>
        <source>Unit in which the values are written</source>
        <translation>Einheit, in der die Werte geschrieben werden</translation>
    </message>
    <message>
        <source>&amp;Where</source>
        <translation>&amp;Wo</translation>
    </message>
    <message>
        <source>Cells or sides of which values are written; in the construction view any others can be assigned</source>
        <translation>Zellen oder Seiten, deren Werte geschrieben werden; in der Ansicht der Konstruktion können beliebige andere zugewiesen werden</translation>
    </message>
    <message>
        <source>In &amp;space</source>
        <translation>&amp;Räumlich</translation>
    </message>
    <message>
        <source>One value for each cell or side makes profiles and fields; means and sums make courses over time</source>
        <translation>Ein Wert je Zelle oder Seite ergibt Profile und Felder; Mittel und Summen ergeben Verläufe über die Zeit</translation>
    </message>
    <message>
        <source>In &amp;time</source>
        <translation>&amp;Zeitlich</translation>
    </message>
    <message>
        <source>Fluxes are best written as means, which leave no peak out</source>
        <translation>Ströme werden am besten als Mittel geschrieben, das keine Spitze auslässt</translation>
    </message>
    <message>
        <source>S&amp;chedule</source>
        <translation>Zeit&amp;plan</translation>
    </message>
    <message>
        <source>When values are written</source>
        <translation>Wann Werte geschrieben werden</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>nowhere</source>
        <translation>nirgends</translation>
    </message>
    <message>
        <source>The output needs a name.</source>
        <translation>Die Ausgabe braucht einen Namen.</translation>
    </message>
    <message>
        <source>There is already an output with this name.</source>
        <translation>Es gibt schon eine Ausgabe mit diesem Namen.</translation>
    </message>
    <message>
        <source>The solver does not know this quantity.</source>
        <translation>Der Löser kennt diese Größe nicht.</translation>
    </message>
    <message>
        <source>This quantity exists on sides only; choose a surface.</source>
        <translation>Diese Größe gibt es nur an Seiten; wählen Sie eine Oberfläche.</translation>
    </message>
    <message>
        <source>This quantity exists in cells only; choose cells.</source>
        <translation>Diese Größe gibt es nur in Zellen; wählen Sie Zellen.</translation>
    </message>
    <message>
        <source>Shown in the results as a profile or a field.</source>
        <translation>In den Ergebnissen als Profil oder Feld zu sehen.</translation>
    </message>
    <message>
        <source>Shown in the results as a course over time.</source>
        <translation>In den Ergebnissen als Verlauf über die Zeit zu sehen.</translation>
    </message>
</context>
<context>
    <name>HygOutputModel</name>
    <message>
        <source>The output is tied to no place and would not be written; edit it and choose one.</source>
        <translation>Die Ausgabe gehört zu keinem Ort und würde nicht geschrieben; bearbeiten Sie sie und wählen Sie einen.</translation>
    </message>
    <message>
        <source>⚠ nowhere</source>
        <translation>⚠ nirgends</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>Wo</translation>
    </message>
    <message>
        <source>In space</source>
        <translation>Räumlich</translation>
    </message>
    <message>
        <source>In time</source>
        <translation>Zeitlich</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Zeitplan</translation>
    </message>
</context>
<context>
    <name>HygOutputPlaces</name>
    <message>
        <source>all cells</source>
        <translation>alle Zellen</translation>
    </message>
    <message>
        <source>surface %1 (%2)</source>
        <translation>Oberfläche %1 (%2)</translation>
    </message>
    <message>
        <source>material %1</source>
        <translation>Material %1</translation>
    </message>
    <message numerus="yes">
        <source>%n places in the drawing</source>
        <translation>
            <numerusform>%n Ort in der Zeichnung</numerusform>
            <numerusform>%n Orte in der Zeichnung</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HygOutputTexts</name>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Relative humidity</source>
        <translation>Relative Luftfeuchte</translation>
    </message>
    <message>
        <source>Vapour pressure</source>
        <translation>Dampfdruck</translation>
    </message>
    <message>
        <source>Capillary pressure</source>
        <translation>Kapillardruck</translation>
    </message>
    <message>
        <source>Moisture content by volume</source>
        <translation>Feuchtegehalt nach Volumen</translation>
    </message>
    <message>
        <source>Moisture mass by volume</source>
        <translation>Feuchtemasse je Volumen</translation>
    </message>
    <message>
        <source>Moisture mass</source>
        <translation>Feuchtemasse</translation>
    </message>
    <message>
        <source>Moisture content by mass</source>
        <translation>Feuchtegehalt nach Masse</translation>
    </message>
    <message>
        <source>Overhygroscopic moisture by volume</source>
        <translation>Überhygroskopische Feuchte je Volumen</translation>
    </message>
    <message>
        <source>Unfrozen moisture by volume</source>
        <translation>Nicht gefrorene Feuchte je Volumen</translation>
    </message>
    <message>
        <source>Ice mass by volume</source>
        <translation>Eismasse je Volumen</translation>
    </message>
    <message>
        <source>Ice content by volume</source>
        <translation>Eisgehalt nach Volumen</translation>
    </message>
    <message>
        <source>Saturation with liquid water</source>
        <translation>Sättigung mit flüssigem Wasser</translation>
    </message>
    <message>
        <source>Thermal conductivity</source>
        <translation>Wärmeleitfähigkeit</translation>
    </message>
    <message>
        <source>Energy by volume</source>
        <translation>Energie je Volumen</translation>
    </message>
    <message>
        <source>Energy</source>
        <translation>Energie</translation>
    </message>
    <message>
        <source>Thermal strain in x</source>
        <translation>Wärmedehnung in x</translation>
    </message>
    <message>
        <source>Thermal strain in y</source>
        <translation>Wärmedehnung in y</translation>
    </message>
    <message>
        <source>Thermal strain in z</source>
        <translation>Wärmedehnung in z</translation>
    </message>
    <message>
        <source>Hygric strain in x</source>
        <translation>Feuchtedehnung in x</translation>
    </message>
    <message>
        <source>Hygric strain in y</source>
        <translation>Feuchtedehnung in y</translation>
    </message>
    <message>
        <source>Hygric strain in z</source>
        <translation>Feuchtedehnung in z</translation>
    </message>
    <message>
        <source>Heat of sources</source>
        <translation>Wärme aus Quellen</translation>
    </message>
    <message>
        <source>Water of sources</source>
        <translation>Wasser aus Quellen</translation>
    </message>
    <message>
        <source>Heat of ground water or heat exchanger</source>
        <translation>Wärme aus Grundwasser oder Wärmetauscher</translation>
    </message>
    <message>
        <source>Heat flux, all mechanisms</source>
        <translation>Wärmestrom, gesamt</translation>
    </message>
    <message>
        <source>Heat flux by conduction</source>
        <translation>Wärmestrom durch Leitung</translation>
    </message>
    <message>
        <source>Heat flux with vapour and liquid</source>
        <translation>Wärmestrom mit Dampf und Flüssigwasser</translation>
    </message>
    <message>
        <source>Heat flux from the air</source>
        <translation>Wärmestrom aus der Luft</translation>
    </message>
    <message>
        <source>Short-wave radiation absorbed</source>
        <translation>Absorbierte kurzwellige Strahlung</translation>
    </message>
    <message>
        <source>Long-wave radiation, net</source>
        <translation>Langwellige Strahlung, Bilanz</translation>
    </message>
    <message>
        <source>Heat flux with vapour from the air</source>
        <translation>Wärmestrom mit Dampf aus der Luft</translation>
    </message>
    <message>
        <source>Heat flux with rain</source>
        <translation>Wärmestrom mit Regen</translation>
    </message>
    <message>
        <source>Moisture flux, vapour and liquid</source>
        <translation>Feuchtestrom, Dampf und Flüssigwasser</translation>
    </message>
    <message>
        <source>Vapour flux</source>
        <translation>Dampfstrom</translation>
    </message>
    <message>
        <source>Liquid flux</source>
        <translation>Flüssigwasserstrom</translation>
    </message>
    <message>
        <source>Vapour flux in the material</source>
        <translation>Dampfstrom im Material</translation>
    </message>
    <message>
        <source>Liquid flux in the material</source>
        <translation>Flüssigwasserstrom im Material</translation>
    </message>
    <message>
        <source>Rain on the surface</source>
        <translation>Regen auf der Oberfläche</translation>
    </message>
    <message>
        <source>Water running off</source>
        <translation>Ablaufendes Wasser</translation>
    </message>
    <message>
        <source>Air temperature before the surface</source>
        <translation>Lufttemperatur vor der Oberfläche</translation>
    </message>
    <message>
        <source>Vapour pressure of the air before the surface</source>
        <translation>Dampfdruck der Luft vor der Oberfläche</translation>
    </message>
    <message>
        <source>Relative humidity of the air before the surface</source>
        <translation>Relative Feuchte der Luft vor der Oberfläche</translation>
    </message>
    <message>
        <source>Moisture mass of each block</source>
        <translation>Feuchtemasse jedes Blocks</translation>
    </message>
    <message>
        <source>Energy of each block</source>
        <translation>Energie jedes Blocks</translation>
    </message>
    <message>
        <source>each cell or side</source>
        <translation>jede Zelle oder Seite</translation>
    </message>
    <message>
        <source>mean</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>integral or sum</source>
        <translation>Integral oder Summe</translation>
    </message>
    <message>
        <source>smallest</source>
        <translation>kleinster Wert</translation>
    </message>
    <message>
        <source>largest</source>
        <translation>größter Wert</translation>
    </message>
    <message>
        <source>at the time</source>
        <translation>zum Zeitpunkt</translation>
    </message>
    <message>
        <source>mean since the last time</source>
        <translation>Mittel seit dem letzten Zeitpunkt</translation>
    </message>
    <message>
        <source>integral since the start</source>
        <translation>Integral seit dem Beginn</translation>
    </message>
    <message>
        <source>smallest since the last time</source>
        <translation>kleinster Wert seit dem letzten Zeitpunkt</translation>
    </message>
    <message>
        <source>largest since the last time</source>
        <translation>größter Wert seit dem letzten Zeitpunkt</translation>
    </message>
    <message>
        <source>every %1</source>
        <translation>alle %1</translation>
    </message>
    <message>
        <source>from %1</source>
        <translation>von %1</translation>
    </message>
    <message>
        <source>to %1</source>
        <translation>bis %1</translation>
    </message>
    <message>
        <source>for %1</source>
        <translation>für %1</translation>
    </message>
    <message>
        <source>Return temperature of a pipe</source>
        <translation>Rücklauftemperatur eines Rohrs</translation>
    </message>
    <message>
        <source>Heat that a pipe gives</source>
        <translation>Wärme, die ein Rohr abgibt</translation>
    </message>
    <message>
        <source>Inlet temperature of a pipe</source>
        <translation>Vorlauftemperatur eines Rohrs</translation>
    </message>
    <message>
        <source>Heat transfer coefficient of a pipe</source>
        <translation>Wärmeübergangskoeffizient eines Rohrs</translation>
    </message>
</context>
<context>
    <name>HygOutputsView</name>
    <message>
        <source>Add standard outputs</source>
        <translation>Standardausgaben hinzufügen</translation>
    </message>
    <message>
        <source>Temperature and humidity of all cells, the moisture in the construction, and the state and fluxes at each interface</source>
        <translation>Temperatur und Feuchte aller Zellen, die Feuchte in der Konstruktion und an jeder Oberfläche Zustand und Ströme</translation>
    </message>
    <message>
        <source>New output ...</source>
        <translation>Neue Ausgabe ...</translation>
    </message>
    <message>
        <source>Choose a quantity, where and when it is written</source>
        <translation>Eine Größe wählen, und wo und wann sie geschrieben wird</translation>
    </message>
    <message>
        <source>Edit output ...</source>
        <translation>Ausgabe bearbeiten ...</translation>
    </message>
    <message>
        <source>Change the chosen output (Enter)</source>
        <translation>Die gewählte Ausgabe ändern (Eingabe)</translation>
    </message>
    <message>
        <source>Duplicate output ...</source>
        <translation>Ausgabe duplizieren ...</translation>
    </message>
    <message>
        <source>A further output like the chosen one</source>
        <translation>Eine weitere Ausgabe wie die gewählte</translation>
    </message>
    <message>
        <source>Remove outputs</source>
        <translation>Ausgaben entfernen</translation>
    </message>
    <message>
        <source>Take the chosen outputs out of the project (Delete)</source>
        <translation>Die gewählten Ausgaben aus dem Projekt nehmen (Entf)</translation>
    </message>
    <message>
        <source>New schedule ...</source>
        <translation>Neuer Zeitplan ...</translation>
    </message>
    <message>
        <source>Times at which outputs are written</source>
        <translation>Zeiten, zu denen Ausgaben geschrieben werden</translation>
    </message>
    <message>
        <source>Edit schedule ...</source>
        <translation>Zeitplan bearbeiten ...</translation>
    </message>
    <message>
        <source>Change the chosen schedule; outputs that use it follow</source>
        <translation>Den gewählten Zeitplan ändern; Ausgaben, die ihn benutzen, folgen</translation>
    </message>
    <message>
        <source>Remove schedule</source>
        <translation>Zeitplan entfernen</translation>
    </message>
    <message>
        <source>Take the chosen schedule out of the project</source>
        <translation>Den gewählten Zeitplan aus dem Projekt nehmen</translation>
    </message>
    <message>
        <source>Outputs</source>
        <translation>Ausgaben</translation>
    </message>
    <message>
        <source>Schedules</source>
        <translation>Zeitpläne</translation>
    </message>
    <message>
        <source>The project has no outputs yet: a simulation would leave no results.&lt;br&gt;&lt;br&gt;&lt;a href=&apos;standard&apos;&gt;Add standard outputs&lt;/a&gt; – temperature and humidity of all cells, the moisture in the construction, the state and fluxes at each interface</source>
        <translation>Das Projekt hat noch keine Ausgaben: eine Simulation hinterließe keine Ergebnisse.&lt;br&gt;&lt;br&gt;&lt;a href=&apos;standard&apos;&gt;Standardausgaben hinzufügen&lt;/a&gt; – Temperatur und Feuchte aller Zellen, die Feuchte in der Konstruktion, an jeder Oberfläche Zustand und Ströme</translation>
    </message>
    <message>
        <source>The project has all standard outputs already.</source>
        <translation>Das Projekt hat schon alle Standardausgaben.</translation>
    </message>
    <message>
        <source>Hourly</source>
        <translation>Stündlich</translation>
    </message>
    <message>
        <source>New output &apos;%1&apos;</source>
        <translation>Neue Ausgabe „%1“</translation>
    </message>
    <message>
        <source>Add schedule</source>
        <translation>Zeitplan hinzufügen</translation>
    </message>
    <message>
        <source>Add output</source>
        <translation>Ausgabe hinzufügen</translation>
    </message>
    <message>
        <source>Assign output</source>
        <translation>Ausgabe zuweisen</translation>
    </message>
    <message>
        <source>Edit output &apos;%1&apos;</source>
        <translation>Ausgabe „%1“ bearbeiten</translation>
    </message>
    <message>
        <source>Edit output</source>
        <translation>Ausgabe bearbeiten</translation>
    </message>
    <message>
        <source>Duplicate output</source>
        <translation>Ausgabe duplizieren</translation>
    </message>
    <message numerus="yes">
        <source>Remove %n outputs</source>
        <translation>
            <numerusform>%n Ausgabe entfernen</numerusform>
            <numerusform>%n Ausgaben entfernen</numerusform>
        </translation>
    </message>
    <message>
        <source>Take outputs off</source>
        <translation>Ausgaben abnehmen</translation>
    </message>
    <message>
        <source>New schedule</source>
        <translation>Neuer Zeitplan</translation>
    </message>
    <message>
        <source>Edit schedule</source>
        <translation>Zeitplan bearbeiten</translation>
    </message>
    <message>
        <source>The schedule &apos;%1&apos; is used by the output &apos;%2&apos;; give it another one first.</source>
        <translation>Der Zeitplan „%1“ wird von der Ausgabe „%2“ benutzt; geben Sie ihr zuerst einen anderen.</translation>
    </message>
</context>
<context>
    <name>HygPreferences</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Projects and files</source>
        <translation>Projekte und Dateien</translation>
    </message>
    <message>
        <source>Construction</source>
        <translation>Konstruktion</translation>
    </message>
    <message>
        <source>Sketch editor</source>
        <translation>Skizzeneditor</translation>
    </message>
    <message>
        <source>Simulation and outputs</source>
        <translation>Simulation und Ausgaben</translation>
    </message>
    <message>
        <source>External programs</source>
        <translation>Externe Programme</translation>
    </message>
    <message>
        <source>Messages and questions</source>
        <translation>Meldungen und Rückfragen</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Language of the program. Changes at once.</source>
        <translation>Sprache des Programms. Wechselt sofort.</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>Erscheinungsbild</translation>
    </message>
    <message>
        <source>Font size</source>
        <translation>Schriftgröße</translation>
    </message>
    <message>
        <source>Size of all texts in points. Changes at once.</source>
        <translation>Größe aller Texte in Punkt. Wechselt sofort.</translation>
    </message>
    <message>
        <source>System</source>
        <translation>System</translation>
    </message>
    <message>
        <source>Undo steps</source>
        <translation>Rückgängig-Schritte</translation>
    </message>
    <message>
        <source>Unit of lengths</source>
        <translation>Einheit für Längen</translation>
    </message>
    <message>
        <source>Unit in which widths of layers and cells are entered and shown.</source>
        <translation>Einheit, in der Breiten von Schichten und Zellen eingegeben und angezeigt werden.</translation>
    </message>
    <message>
        <source>Use the program&apos;s own file dialogs</source>
        <translation>Eigene Dateidialoge des Programms verwenden</translation>
    </message>
    <message>
        <source>Replaces the file dialogs of the desktop; helps where these are slow or lack folders.</source>
        <translation>Ersetzt die Dateidialoge der Arbeitsumgebung; hilft, wenn diese langsam sind oder Ordner fehlen.</translation>
    </message>
    <message>
        <source>Number of recent projects</source>
        <translation>Anzahl der letzten Projekte</translation>
    </message>
    <message>
        <source>Length of the list of recently used projects.</source>
        <translation>Länge der Liste der zuletzt verwendeten Projekte.</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Recent projects</source>
        <translation>Letzte Projekte</translation>
    </message>
    <message>
        <source>Recently used projects, one a line, newest first.</source>
        <translation>Zuletzt verwendete Projekte, eines je Zeile, das neueste zuerst.</translation>
    </message>
    <message>
        <source>Last project</source>
        <translation>Letztes Projekt</translation>
    </message>
    <message>
        <source>The project that was open last.</source>
        <translation>Das zuletzt geöffnete Projekt.</translation>
    </message>
    <message>
        <source>Folder for opening</source>
        <translation>Ordner zum Öffnen</translation>
    </message>
    <message>
        <source>Folder in which file dialogs start.</source>
        <translation>Ordner, in dem Dateidialoge beginnen.</translation>
    </message>
    <message>
        <source>Folder for imports</source>
        <translation>Ordner für Importe</translation>
    </message>
    <message>
        <source>Folder in which the dialogs for imports start.</source>
        <translation>Ordner, in dem die Importdialoge beginnen.</translation>
    </message>
    <message>
        <source>Write complete project files</source>
        <translation>Vollständige Projektdateien schreiben</translation>
    </message>
    <message>
        <source>Writes values that equal their defaults too.</source>
        <translation>Schreibt auch Werte, die ihren Vorgaben entsprechen.</translation>
    </message>
    <message>
        <source>Climate location of new projects</source>
        <translation>Klimaort neuer Projekte</translation>
    </message>
    <message>
        <source>The location that the wizard for new projects offers first.</source>
        <translation>Der Ort, den der Assistent für neue Projekte zuerst anbietet.</translation>
    </message>
    <message>
        <source>Show grid lines</source>
        <translation>Gitterlinien anzeigen</translation>
    </message>
    <message>
        <source>Draws the lines of the grid in the construction view.</source>
        <translation>Zeichnet die Linien des Gitters in der Konstruktionsansicht.</translation>
    </message>
    <message>
        <source>Draw all cells equally wide</source>
        <translation>Alle Zellen gleich breit zeichnen</translation>
    </message>
    <message>
        <source>Makes thin cells visible; widths are then not to scale.</source>
        <translation>Macht dünne Zellen sichtbar; die Breiten sind dann nicht maßstäblich.</translation>
    </message>
    <message>
        <source>Selected cells</source>
        <translation>Ausgewählte Zellen</translation>
    </message>
    <message>
        <source>Highlighted cells</source>
        <translation>Hervorgehobene Zellen</translation>
    </message>
    <message>
        <source>Show grid in the sketch</source>
        <translation>Raster in der Skizze anzeigen</translation>
    </message>
    <message>
        <source>Draws a grid behind the two-dimensional sketch.</source>
        <translation>Zeichnet ein Raster hinter die zweidimensionale Skizze.</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Raster</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>Size of labels</source>
        <translation>Größe der Beschriftung</translation>
    </message>
    <message>
        <source>Font size of the labels of the sketch in points.</source>
        <translation>Schriftgröße der Beschriftung der Skizze in Punkt.</translation>
    </message>
    <message>
        <source>Unit of labels</source>
        <translation>Einheit der Beschriftung</translation>
    </message>
    <message>
        <source>Length unit of the labels of the sketch.</source>
        <translation>Längeneinheit der Beschriftung der Skizze.</translation>
    </message>
    <message>
        <source>Width of lines</source>
        <translation>Linienbreite</translation>
    </message>
    <message>
        <source>Width of the lines of the sketch in pixels.</source>
        <translation>Breite der Linien der Skizze in Bildpunkten.</translation>
    </message>
    <message>
        <source>Parallel threads</source>
        <translation>Parallele Threads</translation>
    </message>
    <message>
        <source>Number of processor cores that the solver uses.</source>
        <translation>Anzahl der Prozessorkerne, die der Löser verwendet.</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Run the solver in its own window</source>
        <translation>Löser in einem eigenen Fenster ausführen</translation>
    </message>
    <message>
        <source>Starts the solver with a window that shows its progress instead of a console.</source>
        <translation>Startet den Löser mit einem Fenster, das seinen Fortschritt zeigt, statt in einer Konsole.</translation>
    </message>
    <message>
        <source>Clear results before a new run</source>
        <translation>Ergebnisse vor einem neuen Lauf löschen</translation>
    </message>
    <message>
        <source>Removes the results of the run before when a simulation starts from the beginning.</source>
        <translation>Entfernt die Ergebnisse des vorigen Laufs, wenn eine Simulation von vorn beginnt.</translation>
    </message>
    <message>
        <source>Quantities offered first</source>
        <translation>Zuerst angebotene Größen</translation>
    </message>
    <message>
        <source>Output quantities that head the list when an output is defined, one a line.</source>
        <translation>Ausgabegrößen, die beim Festlegen einer Ausgabe oben in der Liste stehen, eine je Zeile.</translation>
    </message>
    <message>
        <source>Text editor</source>
        <translation>Texteditor</translation>
    </message>
    <message>
        <source>Program that opens text files such as the log of the solver; empty for that of the desktop.</source>
        <translation>Programm, das Textdateien wie das Protokoll des Lösers öffnet; leer für das der Arbeitsumgebung.</translation>
    </message>
    <message>
        <source>Post-processing</source>
        <translation>Auswertung</translation>
    </message>
    <message>
        <source>Program that shows and compares results.</source>
        <translation>Programm, das Ergebnisse zeigt und vergleicht.</translation>
    </message>
    <message>
        <source>Climate editor</source>
        <translation>Klimaeditor</translation>
    </message>
    <message>
        <source>Program that edits climate data.</source>
        <translation>Programm, das Klimadaten bearbeitet.</translation>
    </message>
    <message>
        <source>Messages on the console</source>
        <translation>Meldungen auf der Konsole</translation>
    </message>
    <message>
        <source>How much is written to the console and the log view. Errors are always written.</source>
        <translation>Wie viel auf die Konsole und in die Protokollansicht geschrieben wird. Fehler werden immer geschrieben.</translation>
    </message>
    <message>
        <source>Messages in the log file</source>
        <translation>Meldungen in der Protokolldatei</translation>
    </message>
    <message>
        <source>How much is written to the log file. Errors are always written.</source>
        <translation>Wie viel in die Protokolldatei geschrieben wird. Fehler werden immer geschrieben.</translation>
    </message>
    <message>
        <source>Questions not asked any more</source>
        <translation>Nicht mehr gestellte Fragen</translation>
    </message>
    <message>
        <source>Remembered answers</source>
        <translation>Gemerkte Antworten</translation>
    </message>
    <message>
        <source>Forgets all answers, so that every question is asked again.</source>
        <translation>Vergisst alle Antworten, sodass jede Frage wieder gestellt wird.</translation>
    </message>
    <message>
        <source>System language</source>
        <translation>Systemsprache</translation>
    </message>
    <message>
        <source>As the system</source>
        <translation>Wie das System</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Hell</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dunkel</translation>
    </message>
    <message>
        <source>Errors only</source>
        <translation>Nur Fehler</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Detailed</source>
        <translation>Ausführlich</translation>
    </message>
    <message>
        <source>Everything</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Light or dark colours, or those of the system. Changes at once.</source>
        <translation>Helle oder dunkle Farben oder die des Systems. Wechselt sofort.</translation>
    </message>
    <message>
        <source>Number of edits that can be undone. Takes effect with the next project that is opened.</source>
        <translation>Anzahl der Änderungen, die rückgängig gemacht werden können. Gilt ab dem nächsten geöffneten Projekt.</translation>
    </message>
    <message>
        <source>Colour of the selected cells in the construction view.</source>
        <translation>Farbe der ausgewählten Zellen in der Konstruktionsansicht.</translation>
    </message>
    <message>
        <source>Colour of the cells that belong to the entry under the mouse.</source>
        <translation>Farbe der Zellen, die zum Eintrag unter dem Mauszeiger gehören.</translation>
    </message>
    <message>
        <source>Colour of the grid behind the sketch.</source>
        <translation>Farbe des Rasters hinter der Skizze.</translation>
    </message>
    <message>
        <source>Colour of the paper of the sketch.</source>
        <translation>Farbe des Papiers der Skizze.</translation>
    </message>
    <message>
        <source>Untick a question to be asked again.</source>
        <translation>Das Häkchen entfernen, um wieder gefragt zu werden.</translation>
    </message>
    <message>
        <source>Favourite materials</source>
        <translation>Favorisierte Materialien</translation>
    </message>
    <message>
        <source>Files of the materials that are marked as favourites, one a line.</source>
        <translation>Dateien der Materialien, die als Favoriten gekennzeichnet sind, eine je Zeile.</translation>
    </message>
</context>
<context>
    <name>HygPreferencesDialog</name>
    <message>
        <source>%1 - answer: %2</source>
        <translation>%1 - Antwort: %2</translation>
    </message>
    <message>
        <source>Every question is asked.</source>
        <translation>Jede Frage wird gestellt.</translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message>
        <source>Search settings</source>
        <translation>Einstellungen durchsuchen</translation>
    </message>
    <message>
        <source>%1:</source>
        <comment>label of a field</comment>
        <translation>%1:</translation>
    </message>
    <message>
        <source>Choose…</source>
        <translation>Auswählen …</translation>
    </message>
    <message>
        <source>Forget all answers</source>
        <translation>Alle Antworten vergessen</translation>
    </message>
    <message>
        <source>The settings apply for now but could not be stored:
%1</source>
        <translation>Die Einstellungen gelten für jetzt, konnten aber nicht gespeichert werden:
%1</translation>
    </message>
    <message>
        <source>No setting contains these words.</source>
        <translation>Keine Einstellung enthält diese Wörter.</translation>
    </message>
</context>
<context>
    <name>HygProjectCard</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Show folder</source>
        <translation>Ordner zeigen</translation>
    </message>
    <message>
        <source>Copy path</source>
        <translation>Pfad kopieren</translation>
    </message>
    <message>
        <source>Remove from this list</source>
        <translation>Aus dieser Liste entfernen</translation>
    </message>
    <message>
        <source>Remove all missing files from this list</source>
        <translation>Alle fehlenden Dateien aus dieser Liste entfernen</translation>
    </message>
</context>
<context>
    <name>HygProjectHandler</name>
    <message>
        <source>Cannot write the new project &apos;%1&apos;.</source>
        <translation>Das neue Projekt &apos;%1&apos; kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The project file &apos;%1&apos; does not exist.</source>
        <translation>Die Projektdatei „%1“ gibt es nicht.</translation>
    </message>
    <message>
        <source>The project could not be saved as &apos;%1&apos;. Nothing is lost: it is still open, with all changes.</source>
        <translation>Das Projekt konnte nicht als „%1“ gespeichert werden. Nichts ist verloren: Es ist mit allen Änderungen weiter geöffnet.</translation>
    </message>
    <message>
        <source>The file is protected against writing.</source>
        <translation>Die Datei ist schreibgeschützt.</translation>
    </message>
    <message>
        <source>Reading project &apos;%1&apos;…</source>
        <translation>Projekt „%1“ wird gelesen…</translation>
    </message>
    <message>
        <source>It was written by a newer version of the program.</source>
        <translation>Es wurde von einer neueren Version des Programms geschrieben.</translation>
    </message>
    <message>
        <source>Cannot open project &apos;%1&apos;.</source>
        <translation>Das Projekt „%1“ kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Project &apos;%1&apos; can only be read, or saved as another file. %2</source>
        <translation>Das Projekt „%1“ kann nur gelesen oder als andere Datei gespeichert werden. %2</translation>
    </message>
    <message>
        <source>Reading unsaved changes…</source>
        <translation>Ungespeicherte Änderungen werden gelesen…</translation>
    </message>
    <message>
        <source>Cannot open the unsaved changes of project &apos;%1&apos;.</source>
        <translation>Die ungespeicherten Änderungen des Projekts „%1“ können nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Saving project &apos;%1&apos;…</source>
        <translation>Projekt „%1“ wird gespeichert…</translation>
    </message>
    <message>
        <source>Project &apos;%1&apos; has not been saved.</source>
        <translation>Das Projekt „%1“ wurde nicht gespeichert.</translation>
    </message>
    <message>
        <source>Another program has changed the file in the meantime.</source>
        <translation>Ein anderes Programm hat die Datei inzwischen geändert.</translation>
    </message>
</context>
<context>
    <name>HygProjectListModel</name>
    <message>
        <source>The folder does not exist any more or is not connected.</source>
        <translation>Den Ordner gibt es nicht mehr, oder er ist nicht verbunden.</translation>
    </message>
    <message>
        <source>The file does not exist any more.</source>
        <translation>Die Datei gibt es nicht mehr.</translation>
    </message>
    <message>
        <source>This is not a file.</source>
        <translation>Das ist keine Datei.</translation>
    </message>
    <message>
        <source>You are not allowed to read this file.</source>
        <translation>Sie dürfen diese Datei nicht lesen.</translation>
    </message>
    <message>
        <source>%1, in folder %2</source>
        <translation>%1, im Ordner %2</translation>
    </message>
    <message>
        <source>%1, missing: %2</source>
        <translation>%1, fehlt: %2</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
</context>
<context>
    <name>HygProjectLock</name>
    <message>
        <source>The folder &apos;%1&apos; cannot be written.</source>
        <translation>In den Ordner „%1“ kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>It is open in another editor: user &apos;%1&apos; on computer &apos;%2&apos;, process %3, since %4.</source>
        <translation>Es ist in einem anderen Editor geöffnet: Benutzer „%1“ am Rechner „%2“, Prozess %3, seit %4.</translation>
    </message>
    <message>
        <source>It is open in another editor, which is just starting.</source>
        <translation>Es ist in einem anderen Editor geöffnet, der gerade startet.</translation>
    </message>
</context>
<context>
    <name>HygProjectMaterialFiles</name>
    <message>
        <source>The path &apos;%1&apos; begins with a placeholder that the project does not define.</source>
        <translation>Der Pfad „%1“ beginnt mit einem Platzhalter, den das Projekt nicht festlegt.</translation>
    </message>
    <message>
        <source>The file &apos;%1&apos; does not exist.</source>
        <translation>Die Datei „%1“ gibt es nicht.</translation>
    </message>
    <message>
        <source>The file has changed on the disk since the project was opened. Calculations use it as it is now.</source>
        <translation>Die Datei hat sich seit dem Öffnen des Projekts auf dem Datenträger geändert. Berechnungen verwenden sie, wie sie jetzt ist.</translation>
    </message>
</context>
<context>
    <name>HygProjectMaterials</name>
    <message>
        <source>Add %1 materials</source>
        <translation>%1 Materialien hinzufügen</translation>
    </message>
    <message>
        <source>Add material %1</source>
        <translation>Material %1 hinzufügen</translation>
    </message>
    <message>
        <source>Replace material %1</source>
        <translation>Material %1 ersetzen</translation>
    </message>
    <message>
        <source>Remove unused materials</source>
        <translation>Unbenutzte Materialien entfernen</translation>
    </message>
    <message>
        <source>Remove material %1</source>
        <translation>Material %1 entfernen</translation>
    </message>
</context>
<context>
    <name>HygProjectMaterialsWidget</name>
    <message>
        <source>good</source>
        <translation>gut</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>missing – choose…</source>
        <translation>fehlt – wählen …</translation>
    </message>
    <message>
        <source>unusable – choose…</source>
        <translation>unbrauchbar – wählen …</translation>
    </message>
    <message>
        <source>&amp;Add…</source>
        <translation>&amp;Hinzufügen …</translation>
    </message>
    <message>
        <source>Choose a material of the database for the project</source>
        <translation>Ein Material der Datenbank für das Projekt wählen</translation>
    </message>
    <message>
        <source>&amp;Replace…</source>
        <translation>&amp;Ersetzen …</translation>
    </message>
    <message>
        <source>Put another material in the place of this one; what is assigned stays assigned</source>
        <translation>Ein anderes Material an die Stelle dieses setzen; Zuweisungen bleiben</translation>
    </message>
    <message>
        <source>&amp;Edit…</source>
        <translation>&amp;Bearbeiten …</translation>
    </message>
    <message>
        <source>Open the material in the editor</source>
        <translation>Das Material im Editor öffnen</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>Ent&amp;fernen</translation>
    </message>
    <message>
        <source>Take the material and its assignments out of the project</source>
        <translation>Das Material und seine Zuweisungen aus dem Projekt nehmen</translation>
    </message>
    <message>
        <source>Remove &amp;unused</source>
        <translation>&amp;Unbenutzte entfernen</translation>
    </message>
    <message>
        <source>Take out the materials that are assigned nowhere</source>
        <translation>Die Materialien herausnehmen, die nirgends zugewiesen sind</translation>
    </message>
    <message>
        <source>A&amp;ccept change</source>
        <translation>Änderung &amp;annehmen</translation>
    </message>
    <message>
        <source>The file may be as it is now; the notice goes away</source>
        <translation>Die Datei darf sein, wie sie jetzt ist; der Hinweis verschwindet</translation>
    </message>
    <message>
        <source>The material file &apos;%1&apos; has changed on the disk.</source>
        <translation>Die Materialdatei „%1“ hat sich auf dem Datenträger geändert.</translation>
    </message>
    <message>
        <source>unused</source>
        <translation>unbenutzt</translation>
    </message>
    <message>
        <source>Assigned nowhere</source>
        <translation>Nirgends zugewiesen</translation>
    </message>
    <message>
        <source>Assigned by:
%1</source>
        <translation>Zugewiesen durch:
%1</translation>
    </message>
    <message>
        <source>Replace &apos;%1&apos; by</source>
        <translation>„%1“ ersetzen durch</translation>
    </message>
    <message>
        <source>Add material to the project</source>
        <translation>Material zum Projekt hinzufügen</translation>
    </message>
    <message>
        <source>Materials of the project</source>
        <translation>Materialien des Projekts</translation>
    </message>
    <message>
        <source>The project has no materials yet. Double click a material of the database to add it.</source>
        <translation>Das Projekt hat noch keine Materialien. Ein Doppelklick auf ein Material der Datenbank fügt es hinzu.</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Uses</source>
        <translation>Verwendet</translation>
    </message>
</context>
<context>
    <name>HygProjectPackage</name>
    <message>
        <source>These files of the project are missing or cannot be read:
%1</source>
        <translation>Diese Dateien des Projekts fehlen oder sind nicht lesbar:
%1</translation>
    </message>
    <message>
        <source>The files of the project are larger than %1 MiB together.</source>
        <translation>Die Dateien des Projekts sind zusammen größer als %1 MiB.</translation>
    </message>
</context>
<context>
    <name>HygRecoveryDialog</name>
    <message>
        <source>Unsaved changes found</source>
        <translation>Ungespeicherte Änderungen gefunden</translation>
    </message>
    <message>
        <source>The program ended before these changes were saved. What do you want to open?</source>
        <translation>Das Programm endete, bevor diese Änderungen gespeichert waren. Was möchten Sie öffnen?</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>Saved file of</source>
        <translation>Gespeicherte Datei von</translation>
    </message>
    <message>
        <source>Unsaved changes of</source>
        <translation>Ungespeicherte Änderungen von</translation>
    </message>
    <message>
        <source>&amp;Delete changes…</source>
        <translation>Änderungen &amp;löschen…</translation>
    </message>
    <message>
        <source>Give these unsaved changes up for good</source>
        <translation>Diese ungespeicherten Änderungen endgültig verwerfen</translation>
    </message>
    <message>
        <source>Open &amp;unsaved changes</source>
        <translation>&amp;Ungespeicherte Änderungen öffnen</translation>
    </message>
    <message>
        <source>Go on where the program ended; saving writes the changes into the file</source>
        <translation>Dort weiterarbeiten, wo das Programm endete; Speichern schreibt die Änderungen in die Datei</translation>
    </message>
    <message>
        <source>Open saved &amp;file</source>
        <translation>Gespeicherte &amp;Datei öffnen</translation>
    </message>
    <message>
        <source>Open the project as it was saved last; the unsaved changes stay kept</source>
        <translation>Das Projekt öffnen, wie es zuletzt gespeichert wurde; die ungespeicherten Änderungen bleiben erhalten</translation>
    </message>
    <message>
        <source>Open &amp;both</source>
        <translation>&amp;Beide öffnen</translation>
    </message>
    <message>
        <source>Open the unsaved changes here and the saved file in a second window, to compare</source>
        <translation>Die ungespeicherten Änderungen hier und die gespeicherte Datei in einem zweiten Fenster öffnen, zum Vergleichen</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>Decide at the next start; nothing is lost</source>
        <translation>Beim nächsten Start entscheiden; nichts geht verloren</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>fehlt</translation>
    </message>
    <message>
        <source>The file does not exist any more; saving makes it anew.</source>
        <translation>Die Datei gibt es nicht mehr; Speichern legt sie neu an.</translation>
    </message>
    <message>
        <source>The file was saved again after these changes had begun. Compare before you save.</source>
        <translation>Die Datei wurde erneut gespeichert, nachdem diese Änderungen begonnen hatten. Bitte vor dem Speichern vergleichen.</translation>
    </message>
    <message>
        <source>Delete the unsaved changes of project &apos;%1&apos;?</source>
        <translation>Die ungespeicherten Änderungen des Projekts „%1“ löschen?</translation>
    </message>
    <message>
        <source>They cannot be brought back.</source>
        <translation>Sie können nicht zurückgeholt werden.</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
</context>
<context>
    <name>HygResultChart</name>
    <message>
        <source>%1 is not shown: a chart has room for two kinds of units.</source>
        <translation>%1 wird nicht gezeigt: Ein Diagramm hat Platz für zwei Arten von Einheiten.</translation>
    </message>
    <message>
        <source>Dew point of %1</source>
        <translation>Taupunkt von %1</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>%1: no humidity of the same places, so the dew point is unknown.</source>
        <translation>%1: keine Feuchte derselben Stellen, daher ist der Taupunkt unbekannt.</translation>
    </message>
    <message>
        <source>%1 is not shown: its values do not lie along the same line.</source>
        <translation>%1 wird nicht gezeigt: Die Werte liegen nicht auf derselben Linie.</translation>
    </message>
    <message>
        <source>%1 is not shown: a chart holds one field and the arrows of one flux.</source>
        <translation>%1 wird nicht gezeigt: Ein Diagramm fasst ein Feld und die Pfeile eines Stroms.</translation>
    </message>
    <message>
        <source>%1 (measured)</source>
        <translation>%1 (gemessen)</translation>
    </message>
    <message>
        <source>The measured column &apos;%1&apos; has the unit &apos;%2&apos;, which fits to no axis.</source>
        <translation>Die gemessene Spalte „%1“ hat die Einheit „%2“, die zu keiner Achse passt.</translation>
    </message>
    <message>
        <source>Not everything can be shown.</source>
        <translation>Nicht alles kann gezeigt werden.</translation>
    </message>
    <message>
        <source>%1 cannot be read to its end.</source>
        <translation>%1 kann nicht bis zum Ende gelesen werden.</translation>
    </message>
    <message>
        <source>%1: %2 to %3, mean %4</source>
        <translation>%1: %2 bis %3, Mittel %4</translation>
    </message>
    <message>
        <source>, above %1 for %2 % of the time</source>
        <translation>, über %1 in %2 % der Zeit</translation>
    </message>
    <message>
        <source>, above %1 in %2 % of the extent</source>
        <translation>, über %1 auf %2 % der Ausdehnung</translation>
    </message>
    <message>
        <source>Nothing has been written into this file yet.</source>
        <translation>In diese Datei ist noch nichts geschrieben worden.</translation>
    </message>
    <message>
        <source>Reading…</source>
        <translation>Wird gelesen…</translation>
    </message>
    <message>
        <source>The file holds no values that could be drawn.</source>
        <translation>Die Datei enthält keine Werte, die gezeichnet werden könnten.</translation>
    </message>
    <message>
        <source>%1: no value</source>
        <translation>%1: kein Wert</translation>
    </message>
    <message>
        <source>, no value for %1 % of the time</source>
        <translation>, kein Wert während %1 % der Zeit</translation>
    </message>
    <message>
        <source>, no value in %1 % of the extent</source>
        <translation>, kein Wert in %1 % der Ausdehnung</translation>
    </message>
    <message>
        <source>The limit %1 lies far from the values and is not drawn.</source>
        <translation>Die Grenze %1 liegt weit von den Werten entfernt und wird nicht gezeichnet.</translation>
    </message>
    <message>
        <source>No dew point: none of the files beside it holds the relative humidity of the same places.</source>
        <translation>Kein Taupunkt: Keine der Dateien daneben enthält die relative Feuchte derselben Orte.</translation>
    </message>
    <message>
        <source>No dew point: it belongs to temperatures, and none is shown.</source>
        <translation>Kein Taupunkt: Er gehört zu Temperaturen, und keine wird gezeigt.</translation>
    </message>
    <message>
        <source>No line at 80 %: it belongs to relative humidities, and none is shown.</source>
        <translation>Keine Linie bei 80 %: Sie gehört zu relativen Feuchten, und keine wird gezeigt.</translation>
    </message>
</context>
<context>
    <name>HygResultFile</name>
    <message>
        <source>The file names no geometry file.</source>
        <translation>Die Datei nennt keine Geometriedatei.</translation>
    </message>
    <message>
        <source>The geometry file &apos;%1&apos; is missing; places are unknown.</source>
        <translation>Die Geometriedatei „%1“ fehlt; die Orte sind unbekannt.</translation>
    </message>
    <message>
        <source>The geometry file &apos;%1&apos; is not the one that these results were calculated with (hash %2 instead of %3); places may be wrong.</source>
        <translation>Die Geometriedatei „%1“ ist nicht die, mit der diese Ergebnisse gerechnet wurden (Prüfsumme %2 statt %3); die Orte können falsch sein.</translation>
    </message>
    <message>
        <source>The results do not fit to their geometry; places are unknown.</source>
        <translation>Die Ergebnisse passen nicht zu ihrer Geometrie; die Orte sind unbekannt.</translation>
    </message>
    <message>
        <source>The geometry file &apos;%1&apos; cannot be read; places are unknown.</source>
        <translation>Die Geometriedatei „%1“ kann nicht gelesen werden; die Orte sind unbekannt.</translation>
    </message>
    <message>
        <source>place %1</source>
        <translation>Stelle %1</translation>
    </message>
</context>
<context>
    <name>HygResultTree</name>
    <message>
        <source>no results yet</source>
        <translation>noch keine Ergebnisse</translation>
    </message>
    <message>
        <source>This project</source>
        <translation>Dieses Projekt</translation>
    </message>
    <message>
        <source>Results</source>
        <translation>Ergebnisse</translation>
    </message>
    <message>
        <source>Quantity</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Result files</source>
        <translation>Ergebnisdateien</translation>
    </message>
    <message>
        <source>Choose a file to show it; tick several to show them in one chart.</source>
        <translation>Wählen Sie eine Datei, um sie zu zeigen; haken Sie mehrere an, um sie in einem Diagramm zu zeigen.</translation>
    </message>
    <message>
        <source>This file cannot be read; it may be cut off, of another version, or no result file at all.</source>
        <translation>Diese Datei kann nicht gelesen werden; sie ist abgeschnitten, von einer anderen Version oder gar keine Ergebnisdatei.</translation>
    </message>
    <message>
        <source>cannot be read</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>course</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>volume</source>
        <translation>Körper</translation>
    </message>
    <message>
        <source>field</source>
        <translation>Feld</translation>
    </message>
    <message>
        <source>profile</source>
        <translation>Profil</translation>
    </message>
    <message numerus="yes">
        <source>%n time(s)</source>
        <translation>
            <numerusform>%n Zeitpunkt</numerusform>
            <numerusform>%n Zeitpunkte</numerusform>
        </translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Zeigt</translation>
    </message>
</context>
<context>
    <name>HygResultsView</name>
    <message>
        <source>Dates</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Times as days and months of a year without leap day</source>
        <translation>Zeiten als Tage und Monate eines Jahrs ohne Schalttag</translation>
    </message>
    <message>
        <source>Dew point</source>
        <translation>Taupunkt</translation>
    </message>
    <message>
        <source>To temperatures the temperature at which the air in the pores would give off water; needs the relative humidity of the same places</source>
        <translation>Zu Temperaturen die Temperatur, bei der die Luft in den Poren Wasser abgäbe; braucht die relative Feuchte derselben Stellen</translation>
    </message>
    <message>
        <source>80 %</source>
        <translation>80 %</translation>
    </message>
    <message>
        <source>Line at 80 % relative humidity, above which mould can grow on surfaces</source>
        <translation>Linie bei 80 % relativer Feuchte, über der auf Oberflächen Schimmel wachsen kann</translation>
    </message>
    <message>
        <source>Smooth</source>
        <translation>Geglättet</translation>
    </message>
    <message>
        <source>Colours between the centres of the cells are interpolated</source>
        <translation>Farben zwischen den Mitten der Zellen werden interpoliert</translation>
    </message>
    <message>
        <source>Isolines</source>
        <translation>Isolinien</translation>
    </message>
    <message>
        <source>Lines of equal value at the ticks of the colour bar</source>
        <translation>Linien gleichen Werts an den Teilstrichen der Farbskala</translation>
    </message>
    <message>
        <source>Arrows</source>
        <translation>Pfeile</translation>
    </message>
    <message>
        <source>Direction and strength of a flux that is ticked beside the field</source>
        <translation>Richtung und Stärke eines Stroms, der neben dem Feld angehakt ist</translation>
    </message>
    <message>
        <source>Measured values</source>
        <translation>Messwerte</translation>
    </message>
    <message>
        <source>Tables (*.csv *.txt *.tsv);;All files (*)</source>
        <translation>Tabellen (*.csv *.txt *.tsv);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Results of a directory</source>
        <translation>Ergebnisse eines Verzeichnisses</translation>
    </message>
    <message>
        <source>Results of a project</source>
        <translation>Ergebnisse eines Projekts</translation>
    </message>
    <message>
        <source>Hygrion projects (*.h6p)</source>
        <translation>Hygrion-Projekte (*.h6p)</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Writing the pictures…</source>
        <translation>Die Bilder werden geschrieben…</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Picture…</source>
        <translation>Bild…</translation>
    </message>
    <message>
        <source>Export picture</source>
        <translation>Bild exportieren</translation>
    </message>
    <message>
        <source>Pictures (*.png *.svg *.pdf)</source>
        <translation>Bilder (*.png *.svg *.pdf)</translation>
    </message>
    <message>
        <source>Table…</source>
        <translation>Tabelle…</translation>
    </message>
    <message>
        <source>Export table</source>
        <translation>Tabelle exportieren</translation>
    </message>
    <message>
        <source>Tables (*.csv)</source>
        <translation>Tabellen (*.csv)</translation>
    </message>
    <message>
        <source>Animation…</source>
        <translation>Animation…</translation>
    </message>
    <message>
        <source>Pictures and films (%1)</source>
        <translation>Bilder und Filme (%1)</translation>
    </message>
    <message>
        <source>Export animation</source>
        <translation>Animation exportieren</translation>
    </message>
    <message>
        <source>Copy picture</source>
        <translation>Bild kopieren</translation>
    </message>
    <message>
        <source>Copy table</source>
        <translation>Tabelle kopieren</translation>
    </message>
    <message>
        <source>Chart layouts</source>
        <translation>Diagrammansichten</translation>
    </message>
    <message>
        <source>Save as…</source>
        <translation>Sichern als…</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Directory…</source>
        <translation>Verzeichnis…</translation>
    </message>
    <message>
        <source>Project…</source>
        <translation>Projekt…</translation>
    </message>
    <message>
        <source>Measured values…</source>
        <translation>Messwerte…</translation>
    </message>
    <message>
        <source>Layouts</source>
        <translation>Ansichten</translation>
    </message>
    <message>
        <source>at a time</source>
        <translation>zu einer Zeit</translation>
    </message>
    <message>
        <source>over time</source>
        <translation>über die Zeit</translation>
    </message>
    <message>
        <source>Place </source>
        <translation>Stelle </translation>
    </message>
    <message>
        <source>no cut</source>
        <translation>kein Schnitt</translation>
    </message>
    <message>
        <source>horizontal cut</source>
        <translation>waagerechter Schnitt</translation>
    </message>
    <message>
        <source>vertical cut</source>
        <translation>senkrechter Schnitt</translation>
    </message>
    <message>
        <source>Shows the results of any directory beside those of the project</source>
        <translation>Zeigt die Ergebnisse eines beliebigen Verzeichnisses neben denen des Projekts</translation>
    </message>
    <message>
        <source>Shows the results of another project for comparison</source>
        <translation>Zeigt die Ergebnisse eines anderen Projekts zum Vergleich</translation>
    </message>
    <message>
        <source>Takes the selected directory out of the tree; its files stay</source>
        <translation>Nimmt das gewählte Verzeichnis aus dem Baum; seine Dateien bleiben</translation>
    </message>
    <message>
        <source>Lays the columns of a table over the courses; the first column is the time in h</source>
        <translation>Legt die Spalten einer Tabelle über die Verläufe; die erste Spalte ist die Zeit in h</translation>
    </message>
    <message>
        <source>Picture, table or animation of the chart</source>
        <translation>Bild, Tabelle oder Animation des Diagramms</translation>
    </message>
    <message>
        <source>What charts show, kept by name with the project</source>
        <translation>Was Diagramme zeigen, unter einem Namen beim Projekt aufbewahrt</translation>
    </message>
    <message>
        <source>Whether the values at a time or the course at a place is shown</source>
        <translation>Ob die Werte zu einer Zeit oder der Verlauf an einer Stelle gezeigt werden</translation>
    </message>
    <message>
        <source>Unit of the values</source>
        <translation>Einheit der Werte</translation>
    </message>
    <message>
        <source>Number of the cell or side whose course is shown</source>
        <translation>Nummer der Zelle oder Seite, deren Verlauf gezeigt wird</translation>
    </message>
    <message>
        <source>Values along a line through the field</source>
        <translation>Werte auf einer Linie durch das Feld</translation>
    </message>
    <message>
        <source>Where the cut lies</source>
        <translation>Wo der Schnitt liegt</translation>
    </message>
    <message>
        <source>%1 cannot be read.</source>
        <translation>%1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The table &apos;%1&apos; cannot be read:</source>
        <translation>Die Tabelle „%1“ kann nicht gelesen werden:</translation>
    </message>
    <message>
        <source>The file could not be written. Is there room on the disk, and may files be written in this directory?</source>
        <translation>Die Datei konnte nicht geschrieben werden. Ist auf dem Datenträger Platz, und darf in diesem Verzeichnis geschrieben werden?</translation>
    </message>
    <message>
        <source>The layouts could not be saved beside the results.</source>
        <translation>Die Ansichten konnten nicht neben den Ergebnissen gespeichert werden.</translation>
    </message>
    <message>
        <source>plane across %1</source>
        <translation>Ebene quer zu %1</translation>
    </message>
    <message>
        <source>How the plane that is shown lies in the construction</source>
        <translation>Wie die gezeigte Ebene in der Konstruktion liegt</translation>
    </message>
    <message>
        <source>Which plane of the construction is shown</source>
        <translation>Welche Ebene der Konstruktion gezeigt wird</translation>
    </message>
    <message>
        <source>Choose a result file in the list.</source>
        <translation>Wählen Sie links eine Ergebnisdatei.</translation>
    </message>
    <message>
        <source>There are no results yet: the view Simulation calculates them.</source>
        <translation>Es gibt noch keine Ergebnisse: Die Ansicht Simulation berechnet sie.</translation>
    </message>
    <message>
        <source>There is a layout &apos;%1&apos; already. Replace it?</source>
        <translation>Es gibt schon eine Diagrammansicht „%1“. Ersetzen?</translation>
    </message>
    <message>
        <source>Remove measured values</source>
        <translation>Messwerte entfernen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>The layout &apos;%1&apos; has been replaced.</source>
        <translation>Die Ansicht „%1“ wurde ersetzt.</translation>
    </message>
    <message>
        <source>Remove the layout &apos;%1&apos;?</source>
        <translation>Die Ansicht „%1“ entfernen?</translation>
    </message>
    <message>
        <source>The layout &apos;%1&apos; has been removed.</source>
        <translation>Die Ansicht „%1“ wurde entfernt.</translation>
    </message>
</context>
<context>
    <name>HygRunList</name>
    <message>
        <source>starting</source>
        <translation>startet</translation>
    </message>
    <message>
        <source>running</source>
        <translation>läuft</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>angehalten</translation>
    </message>
    <message>
        <source>finished</source>
        <translation>fertig</translation>
    </message>
    <message>
        <source>interrupted</source>
        <translation>unterbrochen</translation>
    </message>
    <message>
        <source>failed</source>
        <translation>gescheitert</translation>
    </message>
    <message>
        <source>lost</source>
        <translation>verloren</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>Projekt</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Simulated</source>
        <translation>Simuliert</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Tempo</translation>
    </message>
    <message>
        <source>Ends at</source>
        <translation>Endet um</translation>
    </message>
    <message>
        <source>%1 (test)</source>
        <translation>%1 (Test)</translation>
    </message>
    <message>
        <source>stopping</source>
        <translation>wird beendet</translation>
    </message>
    <message>
        <source>running, no step for %1 s</source>
        <translation>läuft, seit %1 s kein Schritt</translation>
    </message>
    <message>
        <source>%1 per s</source>
        <translation>%1 je s</translation>
    </message>
</context>
<context>
    <name>HygRunLive</name>
    <message>
        <source>at %1 d</source>
        <translation>bei %1 d</translation>
    </message>
    <message>
        <source>Shown:</source>
        <translation>Gezeigt:</translation>
    </message>
    <message>
        <source>over time</source>
        <translation>über die Zeit</translation>
    </message>
    <message>
        <source>The course of the first place instead of all places at the newest time</source>
        <translation>Der Verlauf an der ersten Stelle statt aller Stellen zur neuesten Zeit</translation>
    </message>
    <message>
        <source>no results yet</source>
        <translation>noch keine Ergebnisse</translation>
    </message>
    <message numerus="yes">
        <source>%n files</source>
        <translation>
            <numerusform>%n Datei</numerusform>
            <numerusform>%n Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>Result files of the run that are shown as they grow, up to %1 at once</source>
        <translation>Ergebnisdateien des Laufs, die gezeigt werden, während sie wachsen, bis zu %1 zugleich</translation>
    </message>
    <message>
        <source>The run has not written any results yet. It writes what the view Outputs defines.</source>
        <translation>Der Lauf hat noch keine Ergebnisse geschrieben. Er schreibt, was die Ansicht Ausgaben festlegt.</translation>
    </message>
</context>
<context>
    <name>HygRunMonitor</name>
    <message>
        <source>The solver ended without a word: it crashed, was ended from outside, or the machine was switched off. If there is a restart file, the run can be continued.</source>
        <translation>Der Löser endete wortlos: Er ist abgestürzt, wurde von außen beendet, oder der Rechner wurde ausgeschaltet. Gibt es eine Fortsetzungsdatei, kann der Lauf fortgesetzt werden.</translation>
    </message>
    <message>
        <source>The solver ended with an error at %1 d.</source>
        <translation>Der Lauf endete bei %1 d mit einem Fehler.</translation>
    </message>
    <message>
        <source>The solver could not begin: something in the project, its materials or its climate cannot be calculated.</source>
        <translation>Der Lauf konnte nicht beginnen: Etwas im Projekt, in seinen Materialien oder seinem Klima lässt sich nicht berechnen.</translation>
    </message>
    <message>
        <source>The solver cannot calculate the project as it is.</source>
        <translation>So, wie das Projekt ist, kann es nicht berechnet werden.</translation>
    </message>
    <message>
        <source>The solver ended with an error and could not write the end of its log.</source>
        <translation>Der Löser endete mit einem Fehler und konnte sein Protokoll nicht zu Ende schreiben.</translation>
    </message>
</context>
<context>
    <name>HygRunPanel</name>
    <message>
        <source>End the solver</source>
        <translation>Löser beenden</translation>
    </message>
    <message>
        <source>The solver has been asked to stop and is still busy. End it at once? What it has calculated since the last restart file is lost then.</source>
        <translation>Der Löser wurde gebeten, aufzuhören, und ist noch beschäftigt. Soll er sofort beendet werden? Was er seit der letzten Fortsetzungsdatei gerechnet hat, geht dann verloren.</translation>
    </message>
    <message>
        <source>Go on</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>End at once…</source>
        <translation>Sofort beenden…</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>No run has been started yet.</source>
        <translation>Noch wurde kein Lauf gestartet.</translation>
    </message>
    <message>
        <source>Stopped after %1 d; &quot;Start Simulation&quot; offers to continue it.</source>
        <translation>Nach %1 d beendet; „Simulation starten“ bietet an, ihn fortzusetzen.</translation>
    </message>
    <message>
        <source>The solver has read and checked everything; the simulation can be started.</source>
        <translation>Der Löser hat alles gelesen und geprüft; die Simulation kann gestartet werden.</translation>
    </message>
    <message>
        <source>Runs</source>
        <translation>Läufe</translation>
    </message>
    <message>
        <source>Holds the solver where it is; it keeps its memory and takes no processor time.</source>
        <translation>Hält den Löser an, wo er ist; er behält seinen Speicher und braucht keine Rechenzeit.</translation>
    </message>
    <message>
        <source>Lets the solver write a restart file and end; the run can be continued later.</source>
        <translation>Lässt den Löser eine Fortsetzungsdatei schreiben und enden; der Lauf kann später fortgesetzt werden.</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>What the solver has to say about this run.</source>
        <translation>Was der Löser zu diesem Lauf zu sagen hat.</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Takes the run out of this list. Its results stay.</source>
        <translation>Nimmt den Lauf aus dieser Liste. Seine Ergebnisse bleiben.</translation>
    </message>
</context>
<context>
    <name>HygScheduleDialog</name>
    <message>
        <source>Schedule of outputs</source>
        <translation>Zeitplan für Ausgaben</translation>
    </message>
    <message>
        <source>Name by which outputs refer to the schedule</source>
        <translation>Name, unter dem Ausgaben auf den Zeitplan verweisen</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>Every</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Add &amp;interval</source>
        <translation>&amp;Zeitraum hinzufügen</translation>
    </message>
    <message>
        <source>A further span of time with a step of its own, behind the others</source>
        <translation>Ein weiterer Zeitraum mit eigener Schrittweite, hinter den anderen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Remove this interval</source>
        <translation>Diesen Zeitraum entfernen</translation>
    </message>
    <message>
        <source>Simulated time at which the interval begins; empty for 0</source>
        <translation>Simulierte Zeit, zu der der Zeitraum beginnt; leer für 0</translation>
    </message>
    <message>
        <source>Simulated time at which it ends; empty for the end of the simulation</source>
        <translation>Simulierte Zeit, zu der er endet; leer für das Ende der Simulation</translation>
    </message>
    <message>
        <source>Time between two values, usually 1 h to 1 d</source>
        <translation>Zeit zwischen zwei Werten, gewöhnlich 1 h bis 1 d</translation>
    </message>
    <message>
        <source>The schedule needs a name.</source>
        <translation>Der Zeitplan braucht einen Namen.</translation>
    </message>
    <message>
        <source>There is already a schedule with this name.</source>
        <translation>Es gibt schon einen Zeitplan mit diesem Namen.</translation>
    </message>
</context>
<context>
    <name>HygScreenLogView</name>
    <message>
        <source>Search (Enter: next)</source>
        <translation>Suchen (Enter: weiter)</translation>
    </message>
    <message>
        <source>Finds a text in the log; Enter goes to the next place.</source>
        <translation>Findet einen Text im Protokoll; Enter geht zur nächsten Stelle.</translation>
    </message>
    <message>
        <source>The solver has not written anything yet.</source>
        <translation>Der Löser hat noch nichts geschrieben.</translation>
    </message>
    <message>
        <source>Screen log of the solver</source>
        <translation>Bildschirmprotokoll des Lösers</translation>
    </message>
</context>
<context>
    <name>HygSimulationChecks</name>
    <message>
        <source>There is no climate data file, but conditions take their values from it.</source>
        <translation>Es gibt keine Klimadatei, aber Bedingungen nehmen ihre Werte daraus.</translation>
    </message>
    <message>
        <source>The climate data file &apos;%1&apos; does not exist.</source>
        <translation>Die Klimadatei „%1“ gibt es nicht.</translation>
    </message>
    <message>
        <source>No outputs are defined; the run would leave no results.</source>
        <translation>Es sind keine Ausgaben festgelegt; der Lauf würde keine Ergebnisse hinterlassen.</translation>
    </message>
    <message>
        <source>The output is not assigned to any place.</source>
        <translation>Die Ausgabe ist keiner Stelle zugewiesen.</translation>
    </message>
    <message>
        <source>The simulation has no end: give a duration or an end.</source>
        <translation>Die Simulation hat kein Ende: Geben Sie eine Dauer oder ein Ende an.</translation>
    </message>
    <message>
        <source>Click to go to the place.</source>
        <translation>Ein Klick führt zur Stelle.</translation>
    </message>
    <message>
        <source>No project is open.</source>
        <translation>Es ist kein Projekt geöffnet.</translation>
    </message>
    <message>
        <source>Checking…</source>
        <translation>Wird geprüft…</translation>
    </message>
    <message>
        <source>Nothing stands in the way of a run.</source>
        <translation>Einem Lauf steht nichts im Weg.</translation>
    </message>
    <message>
        <source>Checks</source>
        <translation>Prüfungen</translation>
    </message>
    <message numerus="yes">
        <source>Checks: %n error(s) would stop the run</source>
        <translation>
            <numerusform>Prüfungen: %n Fehler würde den Lauf verhindern</numerusform>
            <numerusform>Prüfungen: %n Fehler würden den Lauf verhindern</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Checks: %n warning(s)</source>
        <translation>
            <numerusform>Prüfungen: %n Warnung</numerusform>
            <numerusform>Prüfungen: %n Warnungen</numerusform>
        </translation>
    </message>
    <message>
        <source>What would stop or spoil the run</source>
        <translation>Was den Lauf verhindern oder verderben würde</translation>
    </message>
</context>
<context>
    <name>HygSimulationRunRequestDialog</name>
    <message>
        <source>Clear result directory before starting simulation</source>
        <translation>Ergebnisverzeichnis vor dem Start der Simulation leeren</translation>
    </message>
    <message>
        <source>Start simulation</source>
        <translation>Simulation starten</translation>
    </message>
    <message>
        <source>For this project exist already some output files.</source>
        <translation>Für dieses Projekt gibt es bereits Ausgabedateien.</translation>
    </message>
    <message>
        <source>Start Solver</source>
        <translation>Löser starten</translation>
    </message>
    <message>
        <source>Restart simulation from begin, overwriting existing files.</source>
        <translation>Simulation von vorn beginnen; vorhandene Dateien werden überschrieben.</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Fortsetzen</translation>
    </message>
    <message>
        <source>Continue simulation from last output time point.</source>
        <translation>Simulation vom letzten Ausgabezeitpunkt an fortsetzen.</translation>
    </message>
    <message>
        <source>The run that wrote these files left no restart file.</source>
        <translation>Der Lauf, der diese Dateien schrieb, hat keine Fortsetzungsdatei hinterlassen.</translation>
    </message>
    <message>
        <source>Removes the files of all earlier runs, also those that the new run does not write again.</source>
        <translation>Entfernt die Dateien aller früheren Läufe, auch solche, die der neue Lauf nicht wieder schreibt.</translation>
    </message>
    <message>
        <source>It goes on from %1 d; what lies behind is calculated anew.</source>
        <translation>Es geht bei %1 d weiter; was danach liegt, wird neu gerechnet.</translation>
    </message>
</context>
<context>
    <name>HygSimulationStartWidget</name>
    <message>
        <source>Disable periodic headers</source>
        <translation>Keine wiederholten Kopfzeilen</translation>
    </message>
    <message>
        <source>The line that names the columns of the progress is written once only.</source>
        <translation>Die Zeile mit den Namen der Spalten des Fortschritts wird nur einmal geschrieben.</translation>
    </message>
    <message>
        <source>Write statistics for each internal solver step</source>
        <translation>Statistik für jeden inneren Schritt des Lösers schreiben</translation>
    </message>
    <message>
        <source>One line for each step in log/steps.tsv; tells what makes a run slow. The file may become large.</source>
        <translation>Eine Zeile für jeden Schritt in log/steps.tsv; zeigt, was einen Lauf langsam macht. Die Datei kann groß werden.</translation>
    </message>
    <message>
        <source>Close solver window on exit</source>
        <translation>Fenster des Lösers am Ende schließen</translation>
    </message>
    <message>
        <source>The window of the solver closes when the run has ended.</source>
        <translation>Das Fenster des Lösers schließt sich, wenn der Lauf zu Ende ist.</translation>
    </message>
    <message>
        <source>Disable periodic restart file writing (may improve performance)</source>
        <translation>Keine regelmäßigen Fortsetzungsdateien (kann schneller sein)</translation>
    </message>
    <message>
        <source>A run that crashes must then start from the beginning; one that is stopped can still be continued.</source>
        <translation>Ein Lauf, der abstürzt, muss dann von vorn beginnen; einer, der beendet wird, kann trotzdem fortgesetzt werden.</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Normal</translation>
    </message>
    <message>
        <source>Detailed</source>
        <translation>Ausführlich</translation>
    </message>
    <message>
        <source>Very Detailed</source>
        <translation>Sehr ausführlich</translation>
    </message>
    <message>
        <source>A number from 1 to 1024 is needed here; without one the solver chooses itself.</source>
        <translation>Hier wird eine Zahl von 1 bis 1024 gebraucht; ohne sie wählt der Löser selbst.</translation>
    </message>
    <message>
        <source>Number of parallel threads, should be less or equal to the number of physical CPU cores.</source>
        <translation>Anzahl paralleler Threads; höchstens so viele, wie der Rechner physische Kerne hat.</translation>
    </message>
    <message>
        <source>Solver error</source>
        <translation>Fehler des Lösers</translation>
    </message>
    <message>
        <source>There is already a file with the name of the output directory to be created &apos;%1&apos;. Please remove this file or save the project with a new name!</source>
        <translation>Es gibt bereits eine Datei mit dem Namen des anzulegenden Ausgabeverzeichnisses „%1“. Bitte entfernen Sie diese Datei oder speichern Sie das Projekt unter einem neuen Namen!</translation>
    </message>
    <message>
        <source>The output directory &apos;%1&apos; is in use by another run (process %2). Wait until it has finished or stop it.</source>
        <translation>Das Ausgabeverzeichnis „%1“ wird von einem anderen Lauf benutzt (Prozess %2). Warten Sie, bis er fertig ist, oder beenden Sie ihn.</translation>
    </message>
    <message>
        <source>Cannot remove result directory &apos;%1&apos;, maybe files are still being used?</source>
        <translation>Das Ergebnisverzeichnis „%1“ lässt sich nicht entfernen; werden Dateien darin noch benutzt?</translation>
    </message>
    <message>
        <source>Cannot find solver executable &apos;%1&apos;.</source>
        <translation>Das Programm des Lösers „%1“ wurde nicht gefunden.</translation>
    </message>
    <message>
        <source>Error running solver</source>
        <translation>Fehler beim Start des Lösers</translation>
    </message>
    <message>
        <source>Could not start solver executable &apos;%1&apos;.</source>
        <translation>Das Programm des Lösers „%1“ konnte nicht gestartet werden.</translation>
    </message>
    <message>
        <source>Start simulation:</source>
        <translation>Simulation starten:</translation>
    </message>
    <message>
        <source>Classical console solver</source>
        <translation>Klassischer Konsolenlöser</translation>
    </message>
    <message>
        <source>The solver runs unseen; its progress is shown here.</source>
        <translation>Der Löser läuft unsichtbar; sein Fortschritt wird hier gezeigt.</translation>
    </message>
    <message>
        <source>Modern solver (graphical interface)</source>
        <translation>Moderner Löser (grafische Oberfläche)</translation>
    </message>
    <message>
        <source>The solver opens a window with progress, fields and the work of the integrator.</source>
        <translation>Der Löser öffnet ein Fenster mit Fortschritt, Feldern und der Arbeit des Integrators.</translation>
    </message>
    <message>
        <source>Solver message detail:</source>
        <translation>Ausführlichkeit der Meldungen:</translation>
    </message>
    <message>
        <source>How much the solver writes into its log; &quot;Normal&quot; is enough unless a run fails.</source>
        <translation>Wie viel der Löser in sein Protokoll schreibt; „Normal“ genügt, solange kein Lauf scheitert.</translation>
    </message>
    <message>
        <source>Write restart file period in s</source>
        <translation>Fortsetzungsdatei schreiben alle (s)</translation>
    </message>
    <message>
        <source>Time period in s for writing restart file. 0 s means writing for each output step.</source>
        <translation>Zeitabstand in s, in dem Fortsetzungsdateien geschrieben werden. 0 s heißt: bei jeder Ausgabe.</translation>
    </message>
    <message>
        <source>Number of parallel threads:</source>
        <translation>Anzahl paralleler Threads:</translation>
    </message>
    <message>
        <source>auto (using OMP_NUM_THREADS if set)</source>
        <translation>automatisch (OMP_NUM_THREADS, falls gesetzt)</translation>
    </message>
    <message>
        <source>Command line:</source>
        <translation>Befehlszeile:</translation>
    </message>
    <message>
        <source>What is started; to be copied for runs without the editor.</source>
        <translation>Was gestartet wird; zum Kopieren für Läufe ohne den Editor.</translation>
    </message>
    <message>
        <source>Start Simulation</source>
        <translation>Simulation starten</translation>
    </message>
    <message>
        <source>Saves the project and starts the solver as a process of its own.</source>
        <translation>Speichert das Projekt und startet den Löser als eigenen Prozess.</translation>
    </message>
    <message>
        <source>Test simulation setup</source>
        <translation>Aufbau der Simulation testen</translation>
    </message>
    <message>
        <source>Lets the solver read and check everything without calculating; takes a few seconds.</source>
        <translation>Lässt den Löser alles lesen und prüfen, ohne zu rechnen; dauert wenige Sekunden.</translation>
    </message>
    <message>
        <source>Show log file...</source>
        <translation>Protokolldatei zeigen...</translation>
    </message>
    <message>
        <source>What the solver has to say about this project&apos;s run.</source>
        <translation>Was der Löser zum Lauf dieses Projekts zu sagen hat.</translation>
    </message>
    <message>
        <source>Nothing can be written into the output directory &apos;%1&apos;. Are its rights and those of the disk as they should be?</source>
        <translation>In das Ausgabeverzeichnis „%1“ kann nichts geschrieben werden. Sind seine Rechte und die des Datenträgers in Ordnung?</translation>
    </message>
</context>
<context>
    <name>HygSimulationView</name>
    <message>
        <source>Run Simulation</source>
        <translation>Simulation starten</translation>
    </message>
    <message>
        <source>Model Options</source>
        <translation>Modelloptionen</translation>
    </message>
    <message>
        <source>Solver Options</source>
        <translation>Löseroptionen</translation>
    </message>
    <message>
        <source>Performance Options</source>
        <translation>Leistungsoptionen</translation>
    </message>
    <message>
        <source>Test of the set-up of %1</source>
        <translation>Test des Aufbaus von %1</translation>
    </message>
    <message>
        <source>Screen log</source>
        <translation>Bildschirmprotokoll</translation>
    </message>
    <message>
        <source>Start Simulation</source>
        <translation>Simulation starten</translation>
    </message>
    <message>
        <source>Test simulation setup</source>
        <translation>Aufbau der Simulation testen</translation>
    </message>
    <message>
        <source>Checking the project…</source>
        <translation>Das Projekt wird geprüft…</translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>und ein weiterer</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n error(s) would stop the run.</source>
        <translation>
            <numerusform>Ein Fehler würde den Lauf aufhalten.</numerusform>
            <numerusform>%n Fehler würden den Lauf aufhalten.</numerusform>
        </translation>
    </message>
    <message>
        <source>Start all the same</source>
        <translation>Trotzdem starten</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Zeigen</translation>
    </message>
</context>
<context>
    <name>HygSolverWindow</name>
    <message>
        <source>Steps</source>
        <translation>Schritte</translation>
    </message>
    <message>
        <source>Time steps of the integrator</source>
        <translation>Zeitschritte des Integrators</translation>
    </message>
    <message>
        <source>Evaluations</source>
        <translation>Auswertungen</translation>
    </message>
    <message>
        <source>How often the balances of all cells were evaluated</source>
        <translation>Wie oft die Bilanzen aller Zellen ausgewertet wurden</translation>
    </message>
    <message>
        <source>Matrices</source>
        <translation>Matrizen</translation>
    </message>
    <message>
        <source>How often the matrix of derivatives was made</source>
        <translation>Wie oft die Matrix der Ableitungen gebildet wurde</translation>
    </message>
    <message>
        <source>Nonlinear iterations</source>
        <translation>Nichtlineare Iterationen</translation>
    </message>
    <message>
        <source>Iterations within the steps; two for each step are usual</source>
        <translation>Iterationen innerhalb der Schritte; zwei je Schritt sind üblich</translation>
    </message>
    <message>
        <source>Linear iterations</source>
        <translation>Lineare Iterationen</translation>
    </message>
    <message>
        <source>Iterations of the iterative solvers of the linear equations</source>
        <translation>Iterationen der iterativen Löser der linearen Gleichungen</translation>
    </message>
    <message>
        <source>Steps too inaccurate</source>
        <translation>Zu ungenaue Schritte</translation>
    </message>
    <message>
        <source>Steps that were taken again because their error was too large</source>
        <translation>Schritte, die wiederholt wurden, weil ihr Fehler zu groß war</translation>
    </message>
    <message>
        <source>Steps without convergence</source>
        <translation>Schritte ohne Konvergenz</translation>
    </message>
    <message>
        <source>Steps that were taken again because the iterations did not converge</source>
        <translation>Schritte, die wiederholt wurden, weil die Iterationen nicht konvergierten</translation>
    </message>
    <message>
        <source>The project is being read…</source>
        <translation>Das Projekt wird gelesen…</translation>
    </message>
    <message>
        <source>Work of the integrator</source>
        <translation>Arbeit des Integrators</translation>
    </message>
    <message>
        <source>Last step</source>
        <translation>Letzter Schritt</translation>
    </message>
    <message>
        <source>Length of the last time step</source>
        <translation>Länge des letzten Zeitschritts</translation>
    </message>
    <message>
        <source>Limited by</source>
        <translation>Begrenzt durch</translation>
    </message>
    <message>
        <source>The place whose error limited the last step</source>
        <translation>Die Stelle, deren Fehler den letzten Schritt begrenzt hat</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Writes a restart file and ends; the run can be continued later</source>
        <translation>Schreibt eine Fortsetzungsdatei und endet; der Lauf kann später fortgesetzt werden</translation>
    </message>
    <message>
        <source>The solver is asked to end…</source>
        <translation>Der Löser ist gebeten, aufzuhören…</translation>
    </message>
    <message>
        <source>Simulated: %1 of %2 d</source>
        <translation>Simuliert: %1 von %2 d</translation>
    </message>
    <message>
        <source>Ends in %1, at %2</source>
        <translation>Endet in %1, um %2</translation>
    </message>
    <message>
        <source>The simulation is set up without errors.</source>
        <translation>Die Simulation ist ohne Fehler aufgebaut.</translation>
    </message>
    <message>
        <source>Finished.</source>
        <translation>Fertig.</translation>
    </message>
    <message>
        <source>Interrupted; the run can be continued.</source>
        <translation>Unterbrochen; der Lauf kann fortgesetzt werden.</translation>
    </message>
    <message>
        <source>The run failed.</source>
        <translation>Der Lauf ist gescheitert.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Closes the window; the results stay</source>
        <translation>Schließt das Fenster; die Ergebnisse bleiben</translation>
    </message>
    <message>
        <source>Speed: %1 per s</source>
        <translation>Tempo: %1 je s</translation>
    </message>
</context>
<context>
    <name>HygStandardOutputs</name>
    <message>
        <source>Temperature field</source>
        <translation>Temperaturfeld</translation>
    </message>
    <message>
        <source>Humidity field</source>
        <translation>Feuchtefeld</translation>
    </message>
    <message>
        <source>Moisture mass</source>
        <translation>Feuchtemasse</translation>
    </message>
    <message>
        <source>Surface temperature %1</source>
        <translation>Oberflächentemperatur %1</translation>
    </message>
    <message>
        <source>Surface humidity %1</source>
        <translation>Oberflächenfeuchte %1</translation>
    </message>
    <message>
        <source>Heat flux %1</source>
        <translation>Wärmestrom %1</translation>
    </message>
    <message>
        <source>Moisture flux %1</source>
        <translation>Feuchtestrom %1</translation>
    </message>
    <message>
        <source>Daily</source>
        <translation>Täglich</translation>
    </message>
    <message>
        <source>Hourly</source>
        <translation>Stündlich</translation>
    </message>
    <message>
        <source>Add standard outputs</source>
        <translation>Standardausgaben hinzufügen</translation>
    </message>
    <message>
        <source>Add outputs</source>
        <translation>Ausgaben hinzufügen</translation>
    </message>
    <message>
        <source>Assign outputs</source>
        <translation>Ausgaben zuweisen</translation>
    </message>
</context>
<context>
    <name>HygStartView</name>
    <message>
        <source>Heat and moisture in building components</source>
        <translation>Wärme und Feuchte in Bauteilen</translation>
    </message>
    <message>
        <source>&amp;New project</source>
        <translation>&amp;Neues Projekt</translation>
    </message>
    <message>
        <source>Start a new project</source>
        <translation>Ein neues Projekt beginnen</translation>
    </message>
    <message>
        <source>&amp;Open project…</source>
        <translation>Projekt ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>Open a project file</source>
        <translation>Eine Projektdatei öffnen</translation>
    </message>
    <message>
        <source>Recent projects</source>
        <translation>Letzte Projekte</translation>
    </message>
    <message>
        <source>Projects that you work on will be listed here, the newest first.</source>
        <translation>Hier stehen künftig die Projekte, an denen Sie arbeiten, das neueste zuerst.</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>Beispiele</translation>
    </message>
    <message>
        <source>No example projects are installed.</source>
        <translation>Es sind keine Beispielprojekte installiert.</translation>
    </message>
</context>
<context>
    <name>HygThresholdField</name>
    <message>
        <source>&apos;%1&apos; is not a number; no line is drawn.</source>
        <translation>„%1“ ist keine Zahl; es wird keine Linie gezeichnet.</translation>
    </message>
    <message>
        <source>Threshold:</source>
        <translation>Schwelle:</translation>
    </message>
    <message>
        <source>Threshold [%1]:</source>
        <translation>Schwelle [%1]:</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>A value in the unit shown; a line is drawn there and the share above it is told</source>
        <translation>Ein Wert in der gezeigten Einheit; dort wird eine Linie gezogen und der Anteil darüber genannt</translation>
    </message>
</context>
<context>
    <name>HygTimeBar</name>
    <message>
        <source>Earlier time point</source>
        <translation>Früherer Zeitpunkt</translation>
    </message>
    <message>
        <source>Hold</source>
        <translation>Halten</translation>
    </message>
    <message>
        <source>Play the results</source>
        <translation>Ergebnisse abspielen</translation>
    </message>
    <message>
        <source>Later time point</source>
        <translation>Späterer Zeitpunkt</translation>
    </message>
    <message>
        <source>Time point that is shown</source>
        <translation>Zeitpunkt, der gezeigt wird</translation>
    </message>
    <message>
        <source>How fast the results are played</source>
        <translation>Wie schnell die Ergebnisse abgespielt werden</translation>
    </message>
    <message>
        <source>slow</source>
        <translation>langsam</translation>
    </message>
    <message>
        <source>normal</source>
        <translation>normal</translation>
    </message>
    <message>
        <source>fast</source>
        <translation>schnell</translation>
    </message>
</context>
<context>
    <name>MM</name>
    <message>
        <source>Invalid Category</source>
        <translation>Ungültige Kategorie</translation>
    </message>
    <message>
        <source>Coating</source>
        <translation>Beschichtung</translation>
    </message>
    <message>
        <source>Plaster and mortar</source>
        <translation>Putz und Mörtel</translation>
    </message>
    <message>
        <source>Building brick</source>
        <translation>Mauerziegel</translation>
    </message>
    <message>
        <source>Natural stones</source>
        <translation>Natursteine</translation>
    </message>
    <message>
        <source>Concrete containing building materials</source>
        <translation>Beton und betonhaltige Baustoffe</translation>
    </message>
    <message>
        <source>Insulation materials</source>
        <translation>Dämmstoffe</translation>
    </message>
    <message>
        <source>Building boards</source>
        <translation>Bauplatten</translation>
    </message>
    <message>
        <source>Timber</source>
        <translation>Holz</translation>
    </message>
    <message>
        <source>Natural materials</source>
        <translation>Naturbaustoffe</translation>
    </message>
    <message>
        <source>Soil</source>
        <translation>Boden</translation>
    </message>
    <message>
        <source>Cladding panels and ceramic tiles</source>
        <translation>Fassadenplatten und keramische Fliesen</translation>
    </message>
    <message>
        <source>Foils and waterproofing products</source>
        <translation>Folien und Abdichtungen</translation>
    </message>
    <message>
        <source>Miscellaneous</source>
        <translation>Sonstiges</translation>
    </message>
    <message>
        <source>Material is air.</source>
        <translation>Das Material ist Luft.</translation>
    </message>
    <message>
        <source>No gas transport through the material possible.</source>
        <translation>Durch das Material strömt kein Gas.</translation>
    </message>
    <message>
        <source>No water vapor transport through the material.</source>
        <translation>Durch das Material diffundiert kein Wasserdampf.</translation>
    </message>
    <message>
        <source>No liquid water transport through the materials.</source>
        <translation>Durch das Material wird kein flüssiges Wasser geleitet.</translation>
    </message>
    <message>
        <source>Material is wood (timber)</source>
        <translation>Das Material ist Holz</translation>
    </message>
    <message>
        <source>Material is based on wood (e.g. wood fiber board)</source>
        <translation>Das Material besteht aus Holz (z. B. Holzfaserplatte)</translation>
    </message>
    <message>
        <source>Material is a foil or vapor retarder. See in comments for additional informations.</source>
        <translation>Das Material ist eine Folie oder Dampfbremse. Weiteres steht in den Bemerkungen.</translation>
    </message>
    <message>
        <source>Bulk density of dry material</source>
        <translation>Rohdichte des trockenen Materials</translation>
    </message>
    <message>
        <source>Specific heat capacity of dry material</source>
        <translation>Spezifische Wärmekapazität des trockenen Materials</translation>
    </message>
    <message>
        <source>Open porosity</source>
        <translation>Offene Porosität</translation>
    </message>
    <message>
        <source>Effective saturation (long term process)</source>
        <translation>Effektive Sättigung (langfristig)</translation>
    </message>
    <message>
        <source>Capillary saturation content (short term process)</source>
        <translation>Kapillare Sättigung (kurzfristig)</translation>
    </message>
    <message>
        <source>Maxiumum moisture content allowed (material must not get wet)</source>
        <translation>Höchster zulässiger Feuchtegehalt (das Material darf nicht nass werden)</translation>
    </message>
    <message>
        <source>Hygroscopic sorption value at RH=80%</source>
        <translation>Hygroskopischer Sorptionswert bei 80 % relativer Feuchte</translation>
    </message>
    <message>
        <source>Thermal conductivity (dry)</source>
        <translation>Wärmeleitfähigkeit (trocken)</translation>
    </message>
    <message>
        <source>Water uptake coefficient</source>
        <translation>Wasseraufnahmekoeffizient</translation>
    </message>
    <message>
        <source>Water vapor diffusion resistance factor</source>
        <translation>Wasserdampf-Diffusionswiderstandszahl</translation>
    </message>
    <message>
        <source>Diffusion equivalent air layer thickness</source>
        <translation>Diffusionsäquivalente Luftschichtdicke</translation>
    </message>
    <message>
        <source>Liquid water conductivity at effective saturation</source>
        <translation>Flüssigwasserleitfähigkeit bei effektiver Sättigung</translation>
    </message>
    <message>
        <source>Liquid water diffusivity at effective saturation</source>
        <translation>Flüssigwasserdiffusivität bei effektiver Sättigung</translation>
    </message>
    <message>
        <source>Air permeability</source>
        <translation>Luftdurchlässigkeit</translation>
    </message>
    <message>
        <source>Thermal conductivity (dry) in material direction v</source>
        <translation>Wärmeleitfähigkeit (trocken) in Materialrichtung v</translation>
    </message>
    <message>
        <source>Water uptake coefficient in material direction v</source>
        <translation>Wasseraufnahmekoeffizient in Materialrichtung v</translation>
    </message>
    <message>
        <source>Water vapor diffusion resistance factor in material direction v</source>
        <translation>Wasserdampf-Diffusionswiderstandszahl in Materialrichtung v</translation>
    </message>
    <message>
        <source>Diffusion equivalent air layer thickness in material direction v</source>
        <translation>Diffusionsäquivalente Luftschichtdicke in Materialrichtung v</translation>
    </message>
    <message>
        <source>Liquid water conductivity at effective saturation in material direction v</source>
        <translation>Flüssigwasserleitfähigkeit bei effektiver Sättigung in Materialrichtung v</translation>
    </message>
    <message>
        <source>Liquid water diffusivity at effective saturation in material direction v</source>
        <translation>Flüssigwasserdiffusivität bei effektiver Sättigung in Materialrichtung v</translation>
    </message>
    <message>
        <source>Air permeability in material direction v</source>
        <translation>Luftdurchlässigkeit in Materialrichtung v</translation>
    </message>
    <message>
        <source>Thermal conductivity (dry) in material direction w</source>
        <translation>Wärmeleitfähigkeit (trocken) in Materialrichtung w</translation>
    </message>
    <message>
        <source>Water uptake coefficient in material direction w</source>
        <translation>Wasseraufnahmekoeffizient in Materialrichtung w</translation>
    </message>
    <message>
        <source>Water vapor diffusion resistance factor in material direction w</source>
        <translation>Wasserdampf-Diffusionswiderstandszahl in Materialrichtung w</translation>
    </message>
    <message>
        <source>Diffusion equivalent air layer thickness in material direction w</source>
        <translation>Diffusionsäquivalente Luftschichtdicke in Materialrichtung w</translation>
    </message>
    <message>
        <source>Liquid water conductivity at effective saturation in material direction w</source>
        <translation>Flüssigwasserleitfähigkeit bei effektiver Sättigung in Materialrichtung w</translation>
    </message>
    <message>
        <source>Liquid water diffusivity at effective saturation in material direction w</source>
        <translation>Flüssigwasserdiffusivität bei effektiver Sättigung in Materialrichtung w</translation>
    </message>
    <message>
        <source>Air permeability in material direction w</source>
        <translation>Luftdurchlässigkeit in Materialrichtung w</translation>
    </message>
    <message>
        <source>Design value of thermal conductivity</source>
        <translation>Bemessungswert der Wärmeleitfähigkeit</translation>
    </message>
    <message>
        <source>Thermal expansion coefficient</source>
        <translation>Wärmedehnungskoeffizient</translation>
    </message>
    <message>
        <source>Hygric expansion coefficient (volumetric moisture content)</source>
        <translation>Hygrischer Dehnungskoeffizient (volumetrischer Feuchtegehalt)</translation>
    </message>
    <message>
        <source>Fiber saturation point (wood)</source>
        <translation>Fasersättigungspunkt (Holz)</translation>
    </message>
    <message>
        <source>Thermal expansion coefficient in material direction v</source>
        <translation>Wärmedehnungskoeffizient in Materialrichtung v</translation>
    </message>
    <message>
        <source>Hygric expansion coefficient (volumetric moisture content) in material direction v</source>
        <translation>Hygrischer Dehnungskoeffizient (volumetrischer Feuchtegehalt) in Materialrichtung v</translation>
    </message>
    <message>
        <source>Thermal expansion coefficient in material direction w</source>
        <translation>Wärmedehnungskoeffizient in Materialrichtung w</translation>
    </message>
    <message>
        <source>Hygric expansion coefficient (volumetric moisture content) in material direction w</source>
        <translation>Hygrischer Dehnungskoeffizient (volumetrischer Feuchtegehalt) in Materialrichtung w</translation>
    </message>
    <message>
        <source>Weighting factor for adaptive foil model positive direction</source>
        <translation>Wichtungsfaktor des Modells für adaptive Folien, positive Richtung</translation>
    </message>
    <message>
        <source>Weighting factor for adaptive foil model negative direction</source>
        <translation>Wichtungsfaktor des Modells für adaptive Folien, negative Richtung</translation>
    </message>
    <message>
        <source>Parameter a for square scaling function for adaptive foil model positive direction</source>
        <translation>Parameter a der quadratischen Skalierung für adaptive Folien, positive Richtung</translation>
    </message>
    <message>
        <source>Parameter b for square scaling function for adaptive foil model positive direction</source>
        <translation>Parameter b der quadratischen Skalierung für adaptive Folien, positive Richtung</translation>
    </message>
    <message>
        <source>Parameter c for square scaling function for adaptive foil model positive direction</source>
        <translation>Parameter c der quadratischen Skalierung für adaptive Folien, positive Richtung</translation>
    </message>
    <message>
        <source>Parameter a for square scaling function for adaptive foil model negative direction</source>
        <translation>Parameter a der quadratischen Skalierung für adaptive Folien, negative Richtung</translation>
    </message>
    <message>
        <source>Parameter b for square scaling function for adaptive foil model negative direction</source>
        <translation>Parameter b der quadratischen Skalierung für adaptive Folien, negative Richtung</translation>
    </message>
    <message>
        <source>Parameter c for square scaling function for adaptive foil model negative direction</source>
        <translation>Parameter c der quadratischen Skalierung für adaptive Folien, negative Richtung</translation>
    </message>
    <message>
        <source>Ground</source>
        <translation>Erdreich</translation>
    </message>
    <message>
        <source>Gravel</source>
        <translation>Kies</translation>
    </message>
    <message>
        <source>Sand</source>
        <translation>Sand</translation>
    </message>
    <message>
        <source>Concrete, not reinforced</source>
        <translation>Beton, unbewehrt</translation>
    </message>
    <message>
        <source>Concrete, reinforced</source>
        <translation>Beton, bewehrt</translation>
    </message>
    <message>
        <source>Masonry</source>
        <translation>Mauerwerk</translation>
    </message>
    <message>
        <source>Wood, across the fibre</source>
        <translation>Holz, quer zur Faser</translation>
    </message>
    <message>
        <source>Wood, along the fibre</source>
        <translation>Holz, längs zur Faser</translation>
    </message>
    <message>
        <source>Metal</source>
        <translation>Metall</translation>
    </message>
    <message>
        <source>Mortar and plaster</source>
        <translation>Mörtel und Putz</translation>
    </message>
    <message>
        <source>Insulation</source>
        <translation>Dämmung</translation>
    </message>
    <message>
        <source>Sealing foil</source>
        <translation>Dichtungsfolie</translation>
    </message>
    <message>
        <source>Sealant</source>
        <translation>Dichtstoff</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>LambdaDry is smaller than 1e-20</source>
        <translation>LambdaDry ist kleiner als 1e-20</translation>
    </message>
    <message>
        <source>The minimum Theta_l value should be zero!</source>
        <translation>Der kleinste Wert von Theta_l sollte null sein!</translation>
    </message>
    <message>
        <source>The maximum Thetal value should be equal to THETA_EFF!</source>
        <translation>Der größte Wert von Thetal sollte gleich THETA_EFF sein!</translation>
    </message>
    <message>
        <source>The lambda-value at zero must match LAMBDA!</source>
        <translation>Der Wert von Lambda bei null muss LAMBDA entsprechen!</translation>
    </message>
    <message>
        <source>Data for Lambda(ThetaIce) exist but function is not valid.!</source>
        <translation>Es gibt Daten für Lambda(ThetaIce), die Funktion ist aber ungültig!</translation>
    </message>
    <message>
        <source>No data for thermal storage given (no parameter ce and no U(T) function)!</source>
        <translation>Keine Daten zur Wärmespeicherung (weder Kennwert ce noch Funktion U(T))!</translation>
    </message>
    <message>
        <source>U(T) function given but no parameter ce!</source>
        <translation>Funktion U(T) gegeben, aber kein Kennwert ce!</translation>
    </message>
    <message>
        <source>Material is air and Theta_Eff exist.</source>
        <translation>Das Material ist Luft, Theta_Eff ist aber gegeben.</translation>
    </message>
    <message>
        <source>Material is air and Theta_Por exist.</source>
        <translation>Das Material ist Luft, Theta_Por ist aber gegeben.</translation>
    </message>
    <message>
        <source>Material is water and vapor tight and Theta_Eff exist.</source>
        <translation>Das Material ist wasser- und dampfdicht, Theta_Eff ist aber gegeben.</translation>
    </message>
    <message>
        <source>Material is water and vapor tight and Theta_Por exist.</source>
        <translation>Das Material ist wasser- und dampfdicht, Theta_Por ist aber gegeben.</translation>
    </message>
    <message>
        <source>Theta_Eff not given! It is necessary for moisture storage</source>
        <translation>Theta_Eff fehlt! Es wird für die Feuchtespeicherung gebraucht</translation>
    </message>
    <message>
        <source>Theta_Por is smaller than Theta_Eff!</source>
        <translation>Theta_Por ist kleiner als Theta_Eff!</translation>
    </message>
    <message>
        <source>Theta_Por not given!</source>
        <translation>Theta_Por fehlt!</translation>
    </message>
    <message>
        <source>Material is water and vapor tight and moisture retention exist.</source>
        <translation>Das Material ist wasser- und dampfdicht, eine Feuchteretention ist aber gegeben.</translation>
    </message>
    <message>
        <source>Material is water and vapor tight and sorption isotherm exist.</source>
        <translation>Das Material ist wasser- und dampfdicht, eine Sorptionsisotherme ist aber gegeben.</translation>
    </message>
    <message>
        <source>Cannot create reverse function of Thetal(RH) function</source>
        <translation>Die Umkehrfunktion zu Thetal(RH) lässt sich nicht bilden</translation>
    </message>
    <message>
        <source>First value of Thetal(pc) is not Theta_Eff.</source>
        <translation>Der erste Wert von Thetal(pc) ist nicht Theta_Eff.</translation>
    </message>
    <message>
        <source>Thetal(pc) exist but not Theta_Eff.</source>
        <translation>Thetal(pc) ist gegeben, Theta_Eff aber nicht.</translation>
    </message>
    <message>
        <source>Last value of Thetal(pc) is not 0.</source>
        <translation>Der letzte Wert von Thetal(pc) ist nicht 0.</translation>
    </message>
    <message>
        <source>First x value of Thetal(pc) is not 0.</source>
        <translation>Der erste x-Wert von Thetal(pc) ist nicht 0.</translation>
    </message>
    <message>
        <source>Last x value of pc(Thetal) is not Theta_Eff.</source>
        <translation>Der letzte x-Wert von pc(Thetal) ist nicht Theta_Eff.</translation>
    </message>
    <message>
        <source>pc(Thetal) exist but not Theta_Eff.</source>
        <translation>pc(Thetal) ist gegeben, Theta_Eff aber nicht.</translation>
    </message>
    <message>
        <source>First x value of pc(Thetal) is not 0.</source>
        <translation>Der erste x-Wert von pc(Thetal) ist nicht 0.</translation>
    </message>
    <message>
        <source>Last value of pc(Thetal) is not 0.</source>
        <translation>Der letzte Wert von pc(Thetal) ist nicht 0.</translation>
    </message>
    <message>
        <source>Current moisture storage function doesn&apos;t allow to create a correct mwu(T) function.</source>
        <translation>Mit der Feuchtespeicherfunktion lässt sich keine richtige Funktion mwu(T) bilden.</translation>
    </message>
    <message>
        <source>No moisture storage function or model given</source>
        <translation>Weder Funktion noch Modell der Feuchtespeicherung gegeben</translation>
    </message>
    <message>
        <source>More than one model for moisture storage given</source>
        <translation>Mehr als ein Modell der Feuchtespeicherung gegeben</translation>
    </message>
    <message>
        <source>Unknown model for moisture storage given</source>
        <translation>Unbekanntes Modell der Feuchtespeicherung</translation>
    </message>
    <message>
        <source>Only GAUSS model for moisture storage is currently supported</source>
        <translation>Als Modell der Feuchtespeicherung wird nur GAUSS unterstützt</translation>
    </message>
    <message>
        <source>Moisture storage function is created from GAUSS model</source>
        <translation>Die Feuchtespeicherfunktion wird aus dem Modell GAUSS gebildet</translation>
    </message>
    <message>
        <source>Material is water tight and Kl_Eff exist.</source>
        <translation>Das Material ist wasserdicht, Kl_Eff ist aber gegeben.</translation>
    </message>
    <message>
        <source>Material is water tight and Dl_Eff exist.</source>
        <translation>Das Material ist wasserdicht, Dl_Eff ist aber gegeben.</translation>
    </message>
    <message>
        <source>Material is water tight and Aw exist.</source>
        <translation>Das Material ist wasserdicht, Aw ist aber gegeben.</translation>
    </message>
    <message>
        <source>Material is water atight and Kl(Thetal) function exist.</source>
        <translation>Das Material ist wasserdicht, die Funktion Kl(Thetal) ist aber gegeben.</translation>
    </message>
    <message>
        <source>Material is water tight and Dl(Thetal) function exist.</source>
        <translation>Das Material ist wasserdicht, die Funktion Dl(Thetal) ist aber gegeben.</translation>
    </message>
    <message>
        <source>Material is not water tight and no liquid transport function exist.</source>
        <translation>Das Material ist nicht wasserdicht und hat keine Funktion des Flüssigwassertransports.</translation>
    </message>
    <message>
        <source>Kl_eff exist but Aw doesn&apos;t exist. Scaling of Kl(Thetal) by using Aw not possible.</source>
        <translation>Kl_eff ist gegeben, Aw aber nicht. Kl(Thetal) kann nicht über Aw skaliert werden.</translation>
    </message>
    <message>
        <source>Dl_eff exist but Aw doesn&apos;t exist. Scaling of Dl(Thetal) by using Aw not possible.</source>
        <translation>Dl_eff ist gegeben, Aw aber nicht. Dl(Thetal) kann nicht über Aw skaliert werden.</translation>
    </message>
    <message>
        <source>Kl(Thetal) exist but Kleff not given!</source>
        <translation>Kl(Thetal) ist gegeben, Kleff aber nicht!</translation>
    </message>
    <message>
        <source>Dl(Thetal) exist but Kleff not given!</source>
        <translation>Dl(Thetal) ist gegeben, Kleff aber nicht!</translation>
    </message>
    <message>
        <source>First Thetal value in Kl(Thetal) must be 0.</source>
        <translation>Der erste Wert von Thetal in Kl(Thetal) muss 0 sein.</translation>
    </message>
    <message>
        <source>Last Thetal value in Kl(Thetal) must be ThetaEff.</source>
        <translation>Der letzte Wert von Thetal in Kl(Thetal) muss ThetaEff sein.</translation>
    </message>
    <message>
        <source>Last Kl value in Kl(Thetal) must be KlEff.</source>
        <translation>Der letzte Wert von Kl in Kl(Thetal) muss KlEff sein.</translation>
    </message>
    <message>
        <source>Kl(Thetal) function must be monotonic increasing.</source>
        <translation>Die Funktion Kl(Thetal) muss monoton steigen.</translation>
    </message>
    <message>
        <source>Dl(Thetal) and Kl(Thetal) exist! Only Kl(Thetal) will be used.</source>
        <translation>Dl(Thetal) und Kl(Thetal) sind gegeben! Nur Kl(Thetal) wird verwendet.</translation>
    </message>
    <message>
        <source>First Thetal value in Dl(Thetal) must be 0.</source>
        <translation>Der erste Wert von Thetal in Dl(Thetal) muss 0 sein.</translation>
    </message>
    <message>
        <source>Last Dl value in Dl(Thetal) must be DlEff.</source>
        <translation>Der letzte Wert von Dl in Dl(Thetal) muss DlEff sein.</translation>
    </message>
    <message>
        <source>Dl(Thetal) function must be monotonic increasing.</source>
        <translation>Die Funktion Dl(Thetal) muss monoton steigen.</translation>
    </message>
    <message>
        <source>Material is vapor tight and myDry exist.</source>
        <translation>Das Material ist dampfdicht, myDry ist aber gegeben.</translation>
    </message>
    <message>
        <source>Material is not vapor tight and Theta_Por doesn&apos;t exist.</source>
        <translation>Das Material ist nicht dampfdicht, Theta_Por ist aber nicht gegeben.</translation>
    </message>
    <message>
        <source>Material is not vapor tight and no vapor transport model exist (no myDry and no Kv(Thetal)).</source>
        <translation>Das Material ist nicht dampfdicht und hat kein Modell des Dampftransports (weder myDry noch Kv(Thetal)).</translation>
    </message>
    <message>
        <source>First Thetal value in Kv(Thetal) must be 0.</source>
        <translation>Der erste Wert von Thetal in Kv(Thetal) muss 0 sein.</translation>
    </message>
    <message>
        <source>Last Thetal value in Kv(Thetal) must be ThetaPor.</source>
        <translation>Der letzte Wert von Thetal in Kv(Thetal) muss ThetaPor sein.</translation>
    </message>
    <message>
        <source>Thirst Kv value in Kv(Thetal) must correspond to myDry.</source>
        <translation>Der erste Wert von Kv in Kv(Thetal) muss myDry entsprechen.</translation>
    </message>
    <message>
        <source>Material is air tight and Kg exist.</source>
        <translation>Das Material ist luftdicht, Kg ist aber gegeben.</translation>
    </message>
    <message>
        <source>Material is not air tight and Kg is smaller than 1e-20s.</source>
        <translation>Das Material ist nicht luftdicht, Kg ist aber kleiner als 1e-20 s.</translation>
    </message>
    <message>
        <source>Material is not air tight and Kg doesn&apos;t exist.</source>
        <translation>Das Material ist nicht luftdicht, Kg ist aber nicht gegeben.</translation>
    </message>
    <message>
        <source>Material is not air tight and transport function is given (no Kg(Thetal) and no Para Kg).</source>
        <translation>Das Material ist nicht luftdicht und hat keine Transportfunktion (weder Kg(Thetal) noch Kennwert Kg).</translation>
    </message>
    <message>
        <source>First Thetal value in Kg(Thetal) must be 0.</source>
        <translation>Der erste Wert von Thetal in Kg(Thetal) muss 0 sein.</translation>
    </message>
    <message>
        <source>Last Thetal value in Kg(Thetal) must be ThetaPor.</source>
        <translation>Der letzte Wert von Thetal in Kg(Thetal) muss ThetaPor sein.</translation>
    </message>
    <message>
        <source>First y value in Kg(Thetal) must be Kg_dry.</source>
        <translation>Der erste y-Wert in Kg(Thetal) muss Kg_dry sein.</translation>
    </message>
    <message>
        <source>All y values in Kg(Thetal) must be greater than 0.</source>
        <translation>Alle y-Werte in Kg(Thetal) müssen größer als 0 sein.</translation>
    </message>
</context>
<context>
    <name>Plot</name>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Relative humidity</source>
        <translation>Relative Luftfeuchte</translation>
    </message>
    <message>
        <source>Direct normal radiation</source>
        <translation>Direkte Normalstrahlung</translation>
    </message>
    <message>
        <source>Diffuse horizontal radiation</source>
        <translation>Diffuse Horizontalstrahlung</translation>
    </message>
    <message>
        <source>Wind direction</source>
        <translation>Windrichtung</translation>
    </message>
    <message>
        <source>Wind velocity</source>
        <translation>Windgeschwindigkeit</translation>
    </message>
    <message>
        <source>Long-wave counter radiation</source>
        <translation>Langwellige Gegenstrahlung</translation>
    </message>
    <message>
        <source>Air pressure</source>
        <translation>Luftdruck</translation>
    </message>
    <message>
        <source>Rain</source>
        <translation>Regen</translation>
    </message>
    <message>
        <source>Moisture content</source>
        <translation>Feuchtegehalt</translation>
    </message>
    <message>
        <source>Capillary pressure pC</source>
        <translation>Kapillardruck pC</translation>
    </message>
    <message>
        <source>Liquid conductivity</source>
        <translation>Flüssigwasserleitfähigkeit</translation>
    </message>
    <message>
        <source>Liquid diffusivity</source>
        <translation>Flüssigwasserdiffusivität</translation>
    </message>
    <message>
        <source>Vapour permeability</source>
        <translation>Dampfdurchlässigkeit</translation>
    </message>
    <message>
        <source>Vapour resistance factor</source>
        <translation>Dampfdiffusionswiderstandszahl</translation>
    </message>
    <message>
        <source>Air permeability</source>
        <translation>Luftdurchlässigkeit</translation>
    </message>
    <message>
        <source>Thermal conductivity</source>
        <translation>Wärmeleitfähigkeit</translation>
    </message>
    <message>
        <source>Internal energy</source>
        <translation>Innere Energie</translation>
    </message>
    <message>
        <source>Vapour diffusion thickness</source>
        <translation>Diffusionsäquivalente Luftschichtdicke</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Element %1</source>
        <translation>Element %1</translation>
    </message>
    <message>
        <source>Side %1</source>
        <translation>Seite %1</translation>
    </message>
    <message>
        <source>%1: no such function</source>
        <translation>%1: keine solche Funktion</translation>
    </message>
</context>
<context>
    <name>QProgressDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>QtExt::ColorButton</name>
    <message>
        <source>Choose a colour</source>
        <translation>Farbe wählen</translation>
    </message>
</context>
<context>
    <name>QtExt::MessageBox</name>
    <message>
        <source>Do not show this again</source>
        <translation>Nicht mehr anzeigen</translation>
    </message>
    <message>
        <source>Remember and do not ask again</source>
        <translation>Antwort merken und nicht mehr fragen</translation>
    </message>
</context>
<context>
    <name>QtExt::ValueEdit</name>
    <message>
        <source>Show in another unit</source>
        <translation>In anderer Einheit anzeigen</translation>
    </message>
    <message>
        <source>Please enter a value.</source>
        <translation>Bitte einen Wert eingeben.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a number.</source>
        <translation>„%1“ ist keine Zahl.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is not a unit of this value; possible: %2.</source>
        <translation>„%1“ ist keine Einheit dieses Wertes; möglich: %2.</translation>
    </message>
    <message>
        <source>The value must lie between %1 and %2.</source>
        <translation>Der Wert muss zwischen %1 und %2 liegen.</translation>
    </message>
    <message>
        <source>The value must be greater than %1.</source>
        <translation>Der Wert muss größer als %1 sein.</translation>
    </message>
    <message>
        <source>The value must be at least %1.</source>
        <translation>Der Wert muss mindestens %1 sein.</translation>
    </message>
    <message>
        <source>The value must be less than %1.</source>
        <translation>Der Wert muss kleiner als %1 sein.</translation>
    </message>
    <message>
        <source>The value must be at most %1.</source>
        <translation>Der Wert darf höchstens %1 sein.</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
</context>
<context>
    <name>SCI::AxisDialog</name>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>Linear</translation>
    </message>
    <message>
        <source>Logarithmic</source>
        <translation>Logarithmisch</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Ranges and units</source>
        <translation>Bereiche und Einheiten</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Bis</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatisch</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Teilung</translation>
    </message>
    <message>
        <source>A number in the unit of the axis, or a date such as 15.03.2021 12:00</source>
        <translation>Eine Zahl in der Einheit der Achse oder ein Datum wie 15.03.2021 12:00</translation>
    </message>
    <message>
        <source>The range that the visible series cover</source>
        <translation>Der Bereich, den die sichtbaren Reihen einnehmen</translation>
    </message>
    <message>
        <source>Unit of the numbers at the axis</source>
        <translation>Einheit der Zahlen an der Achse</translation>
    </message>
    <message>
        <source>How values lie along the axis; a logarithmic one leaves out what is not above 0</source>
        <translation>Wie die Werte auf der Achse liegen; eine logarithmische lässt aus, was nicht über 0 liegt</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no date, expected 15.03.2021 12:00.</source>
        <translation>&apos;%1&apos; ist kein Datum, erwartet wird 15.03.2021 12:00.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is no number.</source>
        <translation>&apos;%1&apos; ist keine Zahl.</translation>
    </message>
    <message>
        <source>The range must begin below its end.</source>
        <translation>Der Bereich muss unter seinem Ende beginnen.</translation>
    </message>
    <message>
        <source>A logarithmic axis begins above 0.</source>
        <translation>Eine logarithmische Achse beginnt über 0.</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
</context>
<context>
    <name>SCI::Chart</name>
    <message>
        <source>Show &amp;all</source>
        <translation>&amp;Alles zeigen</translation>
    </message>
    <message>
        <source>&amp;Previous view</source>
        <translation>&amp;Vorige Ansicht</translation>
    </message>
    <message>
        <source>&amp;Ranges and units...</source>
        <translation>&amp;Bereiche und Einheiten...</translation>
    </message>
    <message>
        <source>&amp;Copy picture</source>
        <translation>Bild &amp;kopieren</translation>
    </message>
    <message>
        <source>Copy as S&amp;VG</source>
        <translation>Als S&amp;VG kopieren</translation>
    </message>
    <message>
        <source>Copy &amp;table</source>
        <translation>&amp;Tabelle kopieren</translation>
    </message>
    <message>
        <source>&amp;Save picture...</source>
        <translation>Bild &amp;speichern...</translation>
    </message>
    <message>
        <source>Save ta&amp;ble...</source>
        <translation>Tabe&amp;lle speichern...</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>&amp;Drucken...</translation>
    </message>
    <message>
        <source>Chart</source>
        <translation>Diagramm</translation>
    </message>
    <message>
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message>
        <source>Picture (*.png);;Vector graphics (*.svg);;Document (*.pdf)</source>
        <translation>Bild (*.png);;Vektorgrafik (*.svg);;Dokument (*.pdf)</translation>
    </message>
    <message>
        <source>Save table</source>
        <translation>Tabelle speichern</translation>
    </message>
    <message>
        <source>Table (*.csv)</source>
        <translation>Tabelle (*.csv)</translation>
    </message>
    <message>
        <source>&amp;Equal scales</source>
        <translation>&amp;Gleiche Maßstäbe</translation>
    </message>
    <message>
        <source>A length is as long along y as along x</source>
        <translation>Eine Länge ist längs y so lang wie längs x</translation>
    </message>
</context>
<context>
    <name>SCI::Plot</name>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>no value</source>
        <translation>kein Wert</translation>
    </message>
</context>
</TS>
