<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name>EmptyPage</name>
    <message numerus="yes">
        <source>Your list has %n site(s). Open the site index and press the one that is to stand in the first place of this page.</source>
        <translation>
            <numerusform>Your list has %n site. Open the site index and press it to put it in the first place of this page.</numerusform>
            <numerusform>Your list has %n sites. Open the site index and press the one that is to stand in the first place of this page.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>There is a copy of %1 with %n site(s). Putting it back adds them to the list; nothing is removed.</source>
        <translation>
            <numerusform>There is a copy of %1 with %n site. Putting it back adds it to the list; nothing is removed.</numerusform>
            <numerusform>There is a copy of %1 with %n sites. Putting it back adds them to the list; nothing is removed.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>They return to their places on %n page(s).</source>
        <translation>
            <numerusform>They return to their places on %n page.</numerusform>
            <numerusform>They return to their places on %n pages.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>OnAirSession</name>
    <message numerus="yes">
        <source>%n further station(s) are not shown.</source>
        <translation>
            <numerusform>%n further station is not shown.</numerusform>
            <numerusform>%n further stations are not shown.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PropagationMap</name>
    <message numerus="yes">
        <source>%n older report(s) were left out.</source>
        <translation>
            <numerusform>%n older report was left out.</numerusform>
            <numerusform>%n older reports were left out.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SetupWindows</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
</TS>
