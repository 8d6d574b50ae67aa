<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>KOLT::CardList</name>
    <message numerus="yes">
        <source>... and %n more</source>
        <translation>
            <numerusform>... and %n more</numerusform>
            <numerusform>... and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::CardSession</name>
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
        <source>Saved the project with %n parameter(s) to %1</source>
        <translation>
            <numerusform>Saved the project with %n parameter to %1</numerusform>
            <numerusform>Saved the project with %n parameters to %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::DialogRecording</name>
    <message numerus="yes">
        <source>%1: %n finding(s). A click goes to the moment.</source>
        <translation>
            <numerusform>%1: %n finding. A click goes to the moment.</numerusform>
            <numerusform>%1: %n findings. A click goes to the moment.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::EngineLedger</name>
    <message numerus="yes">
        <source>%n month(s)</source>
        <translation>
            <numerusform>%n month</numerusform>
            <numerusform>%n months</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n day(s)</source>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n day(s) over</source>
        <translation>
            <numerusform>%n day over</numerusform>
            <numerusform>%n days over</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n start(s)</source>
        <translation>
            <numerusform>%n start</numerusform>
            <numerusform>%n starts</numerusform>
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
<context>
    <name>KOLT::Library::DialogImports</name>
    <message numerus="yes">
        <source>Move the %n file(s) that the import of %1 added to the trash of the library?</source>
        <translation>
            <numerusform>Move the %n file that the import of %1 added to the trash of the library?</numerusform>
            <numerusform>Move the %n files that the import of %1 added to the trash of the library?</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n file(s) are now in %1.</source>
        <translation>
            <numerusform>%n file is now in %1.</numerusform>
            <numerusform>%n files are now in %1.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::Library::DialogMove</name>
    <message numerus="yes">
        <source>%n file(s) were copied and compared. The library is now in
%1
The old folder is kept as it was; delete it yourself when you no longer need it. Other computers use it until they are told the new one in their preferences.</source>
        <translation>
            <numerusform>%n file was copied and compared. The library is now in
%1
The old folder is kept as it was; delete it yourself when you no longer need it. Other computers use it until they are told the new one in their preferences.</numerusform>
            <numerusform>%n files were copied and compared. The library is now in
%1
The old folder is kept as it was; delete it yourself when you no longer need it. Other computers use it until they are told the new one in their preferences.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::LibraryModel</name>
    <message numerus="yes">
        <source>%n flight(s)</source>
        <translation>
            <numerusform>%n flight</numerusform>
            <numerusform>%n flights</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Engine %1, %2
%n file(s)</source>
        <translation>
            <numerusform>Engine %1, %2
%n file</numerusform>
            <numerusform>Engine %1, %2
%n files</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::LibraryPage</name>
    <message numerus="yes">
        <source>Evaluate %n recording(s)</source>
        <translation>
            <numerusform>Evaluate %n recording</numerusform>
            <numerusform>Evaluate %n recordings</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::LibrarySession</name>
    <message numerus="yes">
        <source>%n recording(s) evaluated</source>
        <translation>
            <numerusform>%n recording evaluated</numerusform>
            <numerusform>%n recordings evaluated</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::OpenCycleNotice</name>
    <message numerus="yes">
        <source>An import has added %n file(s) to the cycle that is open.</source>
        <translation>
            <numerusform>An import has added %n file to the cycle that is open.</numerusform>
            <numerusform>An import has added %n files to the cycle that is open.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::OverviewTable</name>
    <message numerus="yes">
        <source>%1: came on %n time(s)</source>
        <translation>
            <numerusform>%1: came on %n time</numerusform>
            <numerusform>%1: came on %n times</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>KOLT::Trust</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %n more</numerusform>
            <numerusform>%1 and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n time stamp(s) in %1 are far off: figures of flights there may be wrong. Take them with care.</source>
        <translation>
            <numerusform>%n time stamp in %1 is far off: figures of flights there may be wrong. Take them with care.</numerusform>
            <numerusform>%n time stamps in %1 are far off: figures of flights there may be wrong. Take them with care.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n times nothing was recorded, for %1 in all: altitudes, fuel and times of flights there may be wrong. Look at the card and the unit.</source>
        <translation>
            <numerusform>%n time nothing was recorded, for %1 in all: altitudes, fuel and times of flights there may be wrong. Look at the card and the unit.</numerusform>
            <numerusform>%n times nothing was recorded, for %1 in all: altitudes, fuel and times of flights there may be wrong. Look at the card and the unit.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n value(s) of %1 are no numbers and left out: figures made from it lack them. Look at the sensor.</source>
        <translation>
            <numerusform>%n value of %1 is no number and left out: figures made from it lack it. Look at the sensor.</numerusform>
            <numerusform>%n values of %1 are no numbers and left out: figures made from it lack them. Look at the sensor.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n message(s), %1 % of all samples, are not in the profile and shown nowhere; the figures hold. Look for a newer profile, or another variant.</source>
        <translation>
            <numerusform>%n message, %1 % of all samples, is not in the profile and shown nowhere; the figures hold. Look for a newer profile, or another variant.</numerusform>
            <numerusform>%n messages, %1 % of all samples, are not in the profile and shown nowhere; the figures hold. Look for a newer profile, or another variant.</numerusform>
        </translation>
    </message>
</context>
</TS>
