<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>KOLT::DialogAbout</name>
    <message>
        <source>About KOLT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Debriefing viewer for the recordings of an engine management unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version of %1, with Qt %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Components</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::DialogCard</name>
    <message>
        <source>Unknown Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop Time</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bus Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ECU Serial Number</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Software Part Nr. A</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Software Part Nr. B</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ECU Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EMU SW Version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Engine Serial Nr.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Engine Type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Samples Total</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cycles</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Raw Data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder that is open</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No record files in this folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start Time: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop Time: </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flight %1 %2 (%3)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::DialogData</name>
    <message>
        <source>Graph</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fault Matrix</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Limit/Warning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Warning Lamps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tow Statistic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>EMU View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The map</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide Map Display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tile Map Display Horizontally</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tile Map Display Vertically</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Date and time of the current moment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Time since the recording unit was switched on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Start or pause the replay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replay Stop</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Stop the replay and go back to the start</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Position within the loaded data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Go to a time since the recording unit was switched on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Speed of the replay</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Speed </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replay Pause</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replay Run</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Replay Start</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::DialogDataTable</name>
    <message>
        <source>Previous change</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Jump to the previous change of the selected column</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Next change</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Jump to the next change of the selected column</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copy</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a cycle or a flight on the left to see its values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No parameters are selected. Check some in the list on the left and press &quot;Confirm Selection&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The selected parameters have no samples in this data set.</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%Ln row(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Select a cell of the parameter to search first.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No further change in this column.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No earlier change in this column.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>KOLT Info</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not copied: more than %1 cells are selected.
Select fewer, or export the data as a CSV file.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::DialogHelp</name>
    <message>
        <source>KOLT Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Back</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Return finds the next place, Shift+Return the one before</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::DialogMain</name>
    <message>
        <source>Main Toolbar</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Variant of the parameter profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit system</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Metric</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Imperial</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The profile file
%1
cannot be read, so no values can be shown. Please install a valid one with &quot;Profile&quot; in the menu &quot;Help&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The last folder %1 is not there. Open another one with &quot;Open Data Folder&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder
%1
is not there any more. It is taken off the list; if it is on a card, insert the card and open it again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open SD Card</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder
%1
cannot be opened. Please check that it is there and may be read.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n record file(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n engine cycle(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>Loading %1 ...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Loading %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is not there any more; the whole cycle is loaded.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1, flight %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1: %2, %3 samples, %4 to %5 (%6)</source>
        <translation type="unfinished"></translation>
    </message>
    <message numerus="yes">
        <source>%n file(s)</source>
        <translation type="unfinished">
            <numerusform></numerusform>
            <numerusform></numerusform>
        </translation>
    </message>
    <message>
        <source>What is loaded; times since the recording unit was switched on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These files could not be read and are missing in what is shown:
%1
Please check that the card is still inserted and that the files can be read; then open the folder again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1
is not a record file. Record files end with .CAN, .can or .xcb.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::DialogPreferences</name>
    <message>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Map</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The language changes when KOLT is started again.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> pixels</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Metric</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Imperial</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The parameter profile that decodes the recordings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Install another profile file in its place</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Font size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Units</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Profile file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A plain address, or a template with {z}, {x} and {y}</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contrast of the hill shading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Brightness of the hill shading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Height factor of the hill shading</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Tile server</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shading &amp;contrast</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shading &amp;brightness</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shading f&amp;actor</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::DialogProfile</name>
    <message>
        <source>Message %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Double click or Del takes a parameter out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected Parameters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Take out</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Uncheck all parameters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Confirm Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show the checked parameters on all pages</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Filter parameters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected Parameters (%1)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::DialogProfileInfo</name>
    <message>
        <source>Identification</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Comment</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Variants</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Active variant</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 parameters in %2 messages of %3 devices, %4 fault matrices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Install Profile...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Use another profile file; a backup of this one is kept</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Search in all columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::MainActions</name>
    <message>
        <source>&amp;New Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Create new Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Project File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open Data Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Data Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Project File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Save Project as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Project as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save Project File as</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quit Application</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show License Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show Profile Information</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Help Window</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open Preferences Dialog</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Google KML File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export Google Earth KML File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Export CSV File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Extras</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open this folder again</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::Messages</name>
    <message>
        <source>KOLT Warning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>KOLT Info</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings could not be saved to
%1
They hold until the program ends. Please check that the folder can be written and is not full.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::ParameterListModel</name>
    <message>
        <source>Device</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Unit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Message</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Byte</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Bits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Factor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Offset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Enumeration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Limits</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Role</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::ProfileInstallation</name>
    <message>
        <source>Install Profile</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Profile Files (*.xml)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The profile
%1
is installed. A backup of the one before stays beside it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a valid KOLT profile !</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The profile could not be written to
%1
Please check that the folder can be written and is not full. The profile before is still in use.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::ProjectSession</name>
    <message>
        <source>KOLT Warning</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Current Project not saved !
Save it now ?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open KOLT Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Project Files (*.xml)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The project file
%1
cannot be read. The selected parameters stay as they are.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save KOLT Project</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The project could not be saved to
%1
Please check that the folder can be written and is not full, or save it elsewhere.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::SplashScreen</name>
    <message>
        <source>Engine recording debriefing</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::TimeTableModel</name>
    <message>
        <source>Time</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KOLT::WidgetEmptyPage</name>
    <message>
        <source>%1 is not part of this version.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>Starting up KOLT...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Creating Dialogs ...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
