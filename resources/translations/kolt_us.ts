<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>KOLT::DaySheet</name>
    <message numerus="yes">
        <source>%n flight(s)</source>
        <translation>
            <numerusform>%n flight</numerusform>
            <numerusform>%n flights</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::DialogDataTable</name>
    <message numerus="yes">
        <source>%Ln row(s)</source>
        <translation>
            <numerusform>%Ln row</numerusform>
            <numerusform>%Ln rows</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::DialogDataView</name>
    <message numerus="yes">
        <source>The instrument view has %n fault(s): %1</source>
        <translation>
            <numerusform>The instrument view has %n fault: %1</numerusform>
            <numerusform>The instrument view has %n faults: %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::DialogMain</name>
    <message numerus="yes">
        <source>%n record file(s)</source>
        <translation>
            <numerusform>%n record file</numerusform>
            <numerusform>%n record files</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n engine cycle(s)</source>
        <translation>
            <numerusform>%n engine cycle</numerusform>
            <numerusform>%n engine cycles</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s)</source>
        <translation>
            <numerusform>%n file</numerusform>
            <numerusform>%n files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::Export</name>
    <message numerus="yes">
        <source>%n flight(s)</source>
        <translation>
            <numerusform>%n flight</numerusform>
            <numerusform>%n flights</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::GraphScene</name>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... and %n more</numerusform>
            <numerusform>... and %n more</numerusform>
        </translation>
    </message>
</context>
</TS>
