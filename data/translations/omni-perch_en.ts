<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
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
</TS>
