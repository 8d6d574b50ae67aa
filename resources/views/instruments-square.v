<?xml version="1.0" encoding="UTF-8"?>
<!-- The engine panel of the default profile, for square pages. Format: docs/formats/view.md. Limits
     and their colours come from the profile. -->
<view width="720" height="700" background="#05070a" font="B612">
    <font file="fonts/B612-Regular.otf"/>
    <font file="fonts/B612-Bold.otf"/>

    <!-- colours -->
    <define name="card" value="#0e1319"/>
    <define name="edge" value="#222b34"/>
    <define name="green" value="#00c853"/>
    <define name="amber" value="#ffab00"/>
    <define name="red" value="#ff1744"/>
    <define name="white" value="#ffffff"/>
    <define name="grey" value="#b4bec8"/>
    <define name="dim" value="#7c8894"/>
    <define name="black" value="#14100a"/>

    <!-- units: limits are metric, only displayed numbers are converted -->
    <define name="imperial" value="UNIT == 1"/>
    <define name="hPa" value="imperial ? 0.0295299831 : 1"/>
    <define name="bar" value="imperial ? 14.5037738 : 1"/>
    <define name="litre" value="imperial ? 0.264172052 : 1"/>
    <define name="degree" value="imperial ? 1.8 : 1"/>
    <define name="zero" value="imperial ? 32 : 0"/>

    <!-- Engine values are those of lane A, even if lane B sends one of the same name; "...Worst" is
         the worse state of the two. Profiles without a device "ECU Lane A" have only the plain
         name, and some variants have no tow lamp: then its threshold is not set. -->
    <optional name="Lamp Tow"/>
    <optional name="ECU Lane A/Engine Speed"/>
    <optional name="ECU Lane A/Manifold Pressure"/>
    <optional name="ECU Lane A/Oil Temperature"/>
    <optional name="ECU Lane A/Oil Pressure"/>
    <optional name="ECU Lane A/EGT 1"/>
    <optional name="ECU Lane A/EGT 2"/>
    <optional name="ECU Lane A/EGT 3"/>
    <optional name="ECU Lane A/EGT 4"/>
    <optional name="ECU Lane A/Engine Hours"/>
    <define name="rpm" value="first([ECU Lane A/Engine Speed], [Engine Speed])"/>
    <define name="map" value="first([ECU Lane A/Manifold Pressure], [Manifold Pressure])"/>
    <define name="oilTemp" value="first([ECU Lane A/Oil Temperature], [Oil Temperature])"/>
    <define name="oilPress" value="first([ECU Lane A/Oil Pressure], [Oil Pressure])"/>
    <define name="egt1" value="first([ECU Lane A/EGT 1], [EGT 1])"/>
    <define name="egt2" value="first([ECU Lane A/EGT 2], [EGT 2])"/>
    <define name="egt3" value="first([ECU Lane A/EGT 3], [EGT 3])"/>
    <define name="egt4" value="first([ECU Lane A/EGT 4], [EGT 4])"/>
    <define name="hours" value="first([ECU Lane A/Engine Hours], [Engine Hours])"/>
    <define name="rpmState"
            value="isset([ECU Lane A/Engine Speed]) ? [ECU Lane A/Engine Speed_STATE] : [Engine Speed_STATE]"/>
    <define name="mapState"
            value="isset([ECU Lane A/Manifold Pressure]) ? [ECU Lane A/Manifold Pressure_STATE] : [Manifold Pressure_STATE]"/>
    <define name="oilTempState"
            value="isset([ECU Lane A/Oil Temperature]) ? [ECU Lane A/Oil Temperature_STATE] : [Oil Temperature_STATE]"/>
    <define name="oilPressState"
            value="isset([ECU Lane A/Oil Pressure]) ? [ECU Lane A/Oil Pressure_STATE] : [Oil Pressure_STATE]"/>
    <define name="egt1State"
            value="isset([ECU Lane A/EGT 1]) ? [ECU Lane A/EGT 1_STATE] : [EGT 1_STATE]"/>
    <define name="egt2State"
            value="isset([ECU Lane A/EGT 2]) ? [ECU Lane A/EGT 2_STATE] : [EGT 2_STATE]"/>
    <define name="egt3State"
            value="isset([ECU Lane A/EGT 3]) ? [ECU Lane A/EGT 3_STATE] : [EGT 3_STATE]"/>
    <define name="egt4State"
            value="isset([ECU Lane A/EGT 4]) ? [ECU Lane A/EGT 4_STATE] : [EGT 4_STATE]"/>
    <define name="rpmLimit"
            value="first([ECU Lane A/Engine Speed_LIMIT], [Engine Speed_LIMIT])"/>
    <define name="mapLimit"
            value="first([ECU Lane A/Manifold Pressure_LIMIT], [Manifold Pressure_LIMIT])"/>
    <define name="mapEnd" value="first(ceil(mapLimit * 1.1 / 100) * 100, 1800)"/>
    <define name="hasTow" value="isset([Lamp Tow_STEP1])"/>
    <define name="rpmWorst" value="max(rpmState, [Engine Speed_STATE])"/>
    <define name="mapWorst" value="max(mapState, [Manifold Pressure_STATE])"/>
    <define name="oilTempWorst" value="max(oilTempState, [Oil Temperature_STATE])"/>
    <define name="oilPressWorst" value="max(oilPressState, [Oil Pressure_STATE])"/>
    <define name="egtWorst"
            value="max(egt1State, egt2State, egt3State, egt4State, [EGT 1_STATE], [EGT 2_STATE], [EGT 3_STATE], [EGT 4_STATE])"/>
    <define name="spread" value="max(egt1, egt2, egt3, egt4) - min(egt1, egt2, egt3, egt4)"/>

    <style name="card" fill="card" stroke="edge" thickness="1.5" corner="6"/>
    <style name="caption" size="17" color="grey"/>
    <style name="number" size="24" weight="bold" align="right"/>
    <style name="scale" height="12" labelSize="17" size="26"/>

    <!-- engine speed -->
    <rectangle style="card" x="6" y="6" width="232" height="232"/>
    <gauge x="122" y="118.8" radius="106" value="rpm" min="0" max="6500" major="1000"
           minor="500" labelScale="1000" format="%.0f" state="rpmState" size="40"
           labelSize="19" label="RPM">
        <steps of="ECU Lane A/Engine Speed" or="Engine Speed"/>
        <mark at="rpmLimit" color="red"/>
    </gauge>
    <text x="122" y="80.6" size="17" align="center" color="dim" text="x 1000"/>

    <!-- manifold pressure -->
    <rectangle style="card" x="244" y="6" width="232" height="232"/>
    <gauge x="360" y="118.8" radius="106" value="map * hPa"
           min="imperial ? 10 : 200" max="mapEnd * hPa" major="imperial ? 10 : 200"
           minor="imperial ? 5 : 100" labelScale="imperial ? 1 : 100"
           format="=imperial ? '%.1f' : '%.0f'" state="mapState" size="40"
           labelSize="19" label="=imperial ? 'MAN inHg' : 'MAN hPa'">
        <steps of="ECU Lane A/Manifold Pressure" or="Manifold Pressure" factor="hPa"/>
        <mark at="mapLimit * hPa" color="red"/>
    </gauge>
    <text x="360" y="80.6" size="17" align="center" color="dim" visible="not imperial" text="x 100"/>

    <!-- oil and coolant -->
    <rectangle style="card" x="482" y="6" width="232" height="248"/>
    <bar style="scale" x="494" y="68" width="208" label="OIL TEMP" unit="=imperial ? '°F' : '°C'"
         value="oilTemp" digits="oilTemp * degree + zero" format="%.0f"
         min="0" max="150" state="oilTempState">
        <steps of="ECU Lane A/Oil Temperature" or="Oil Temperature"/>
    </bar>
    <bar style="scale" x="494" y="144" width="208" label="OIL PRESS" unit="=imperial ? 'psi' : 'bar'"
         value="oilPress" digits="oilPress * bar" format="=imperial ? '%.0f' : '%.1f'"
         min="0" max="8" state="oilPressState">
        <steps of="ECU Lane A/Oil Pressure" or="Oil Pressure"/>
    </bar>
    <bar style="scale" x="494" y="220" width="208" label="COOLANT" unit="=imperial ? '°F' : '°C'"
         value="[Coolant Temperature A]" digits="[Coolant Temperature A] * degree + zero"
         format="%.0f" min="0" max="140" state="[Coolant Temperature A_STATE]">
        <steps of="Coolant Temperature A"/>
    </bar>

    <!-- cautions and warnings -->
    <rectangle style="card" x="6" y="244" width="470" height="116"/>
    <style name="warning" color="white" background="red" priority="2"/>
    <style name="caution" color="amber" priority="1"/>
    <annunciator x="12" y="248" width="458" height="108" rows="4" size="18">
        <message style="warning" text="OIL PRESSURE"
                 when="[Lamp Oil Pressure] == 1 or oilPressWorst == 2 and isset(oilPress)"/>
        <message style="warning" text="OVERSPEED"
                 when="[Lamp Overspeed] == 1 or rpmWorst == 2"/>
        <message style="warning" text="MANIFOLD PRESSURE" when="mapWorst == 2"/>
        <message style="warning" text="OIL TEMPERATURE"
                 when="[Lamp Oil Temperature] == 1 or oilTempWorst == 2"/>
        <message style="warning" text="COOLANT TEMPERATURE"
                 when="[Lamp Coolant] == 1 or [Coolant Temperature A_STATE] == 2"/>
        <message style="warning" text="FUEL PRESSURE"
                 when="[Lamp Fuel Pressure] == 1 or isset([Fuel Pressure A]) and [Fuel Pressure A_STATE] == 2 or isset([Fuel Pressure B]) and [Fuel Pressure B_STATE] == 2"/>
        <message style="warning" text="EXHAUST GAS"
                 when="egtWorst == 2"/>
        <message style="warning" text="GENERATOR" when="[Lamp Generator] == 1"/>
        <message style="warning" text="BUS VOLTAGE" when="[Bus Voltage A_STATE] == 2"/>
        <message style="caution" text="EXHAUST GAS HIGH"
                 when="egtWorst == 1"/>
        <message style="caution" text="ENGINE SPEED HIGH" when="rpmWorst == 1"/>
        <message style="caution" text="MANIFOLD PRESS HIGH" when="mapWorst == 1"/>
        <message style="caution" text="OIL TEMPERATURE" when="oilTempWorst == 1"/>
        <message style="caution" text="OIL PRESSURE" when="oilPressWorst == 1"/>
        <message style="caution" text="COOLANT HIGH" when="[Coolant Temperature A_STATE] == 1"/>
        <message style="caution" text="FUEL PRESSURE"
                 when="max([Fuel Pressure A_STATE], [Fuel Pressure B_STATE]) == 1"/>
        <message style="caution" text="LANE A FAULT" when="[Lamp Lane A] == 1"/>
        <message style="caution" text="LANE B FAULT" when="[Lamp Lane B] == 1"/>
        <message style="caution" text="FUEL LOW" when="[Lamp Low Fuel] == 1"/>
        <message style="caution" text="BUS VOLTAGE" when="[Bus Voltage A_STATE] == 1"/>
        <message style="caution" text="ALTERNATOR LOAD" when="[Alternator Current_STATE] >= 1"/>
    </annunciator>

    <!-- electrical system, fuel pressure -->
    <rectangle style="card" x="482" y="260" width="232" height="248"/>
    <bar style="scale" x="494" y="322" width="208" label="VOLTAGE" unit="V"
         value="[Bus Voltage A]"
         min="10" max="16" format="%.1f" state="[Bus Voltage A_STATE]">
        <steps of="Bus Voltage A"/>
    </bar>
    <bar style="scale" x="494" y="398" width="208" label="ALTERNATOR" unit="A"
         value="[Alternator Current]"
         min="0" max="45" format="%.0f" state="[Alternator Current_STATE]">
        <steps of="Alternator Current"/>
    </bar>
    <bar style="scale" x="494" y="474" width="208" label="FUEL P" unit="=imperial ? 'psi' : 'bar'" size="22"
         value="[Fuel Pressure A]" value2="[Fuel Pressure B]" min="2" max="4"
         digits="[Fuel Pressure A] * bar" digits2="[Fuel Pressure B] * bar"
         format="=imperial ? '%.0f' : '%.1f'" state="[Fuel Pressure A_STATE]"
         state2="[Fuel Pressure B_STATE]">
        <steps of="Fuel Pressure A"/>
    </bar>

    <!-- exhaust gas -->
    <rectangle style="card" x="6" y="366" width="232" height="202"/>
    <style name="egt" y="434" width="26" height="92" min="300" max="1000" look="fill" labelSize="17"
           size="22" format="%.0f"/>
    <text style="caption" x="14" y="388" text="=imperial ? 'EGT °F' : 'EGT °C'"/>
    <text style="caption" x="175.2" y="388" align="right" text="SPREAD"/>
    <text x="230" y="388" align="right" size="22" weight="bold" value="spread * degree" format="%.0f"/>
    <bar style="egt" x="23.5" label="1" value="egt1" digits="egt1 * degree + zero" state="egt1State">
        <steps of="ECU Lane A/EGT 1" or="EGT 1"/>
    </bar>
    <bar style="egt" x="80.5" label="2" value="egt2" digits="egt2 * degree + zero" state="egt2State">
        <steps of="ECU Lane A/EGT 2" or="EGT 2"/>
    </bar>
    <bar style="egt" x="137.5" label="3" value="egt3" digits="egt3 * degree + zero" state="egt3State">
        <steps of="ECU Lane A/EGT 3" or="EGT 3"/>
    </bar>
    <bar style="egt" x="194.5" label="4" value="egt4" digits="egt4 * degree + zero" state="egt4State">
        <steps of="ECU Lane A/EGT 4" or="EGT 4"/>
    </bar>

    <!-- throttle and lanes -->
    <rectangle style="card" x="244" y="366" width="232" height="202"/>
    <bar style="scale" x="256" y="426" width="208" label="THR %" value="[Throttle A]" value2="[Throttle B]"
         format="%.0f" min="0" max="100" major="25" size="26"/>
    <style name="lane" y="462" width="101" height="54" size="17" color="grey"/>
    <lamp style="lane" x="256" text="LANE A|STANDBY" value="[Lamp Lane A] == 1 ? 2 : [Lane A Active]">
        <case value="2" text="LANE A|FAULT"/>
        <case value="1" text="LANE A|ACTIVE" color="white" background="#00703a"/>
    </lamp>
    <lamp style="lane" x="363" text="LANE B|STANDBY" value="[Lamp Lane B] == 1 ? 2 : [Lane B Active]">
        <case value="2" text="LANE B|FAULT"/>
        <case value="1" text="LANE B|ACTIVE" color="white" background="#00703a"/>
    </lamp>
    <text x="360" y="543" align="center" size="20" weight="bold" value="[Engine State A]" dashes="---">
        <case value="0" text="STOPPED" color="grey"/>
        <case value="1" text="CRANKING"/>
        <case value="2" text="IDLE"/>
        <case value="3" text="WARM-UP" color="amber"/>
        <case value="4" text="CRUISE"/>
        <case value="5" text="MAX CONT"/>
        <case value="6" text="TAKE-OFF"/>
        <case value="7" text="LIMP HOME" color="red"/>
    </text>

    <!-- fuel, hours -->
    <rectangle style="card" x="482" y="514" width="232" height="180"/>
    <text style="caption" x="494" y="538" text="FUEL FLOW"/>
    <text style="number" x="600" y="574" value="[Fuel Flow A] * litre" format="%.1f"/>
    <text style="number" x="660" y="574" value="[Fuel Flow B] * litre" format="%.1f"/>
    <text style="caption" x="666" y="574" text="=imperial ? 'gal/h' : 'l/h'"/>
    <text style="caption" x="494" y="620" text="FUEL USED"/>
    <text style="number" x="660" y="620" value="[Fuel Used] * litre" format="%.1f"/>
    <text style="caption" x="666" y="620" text="=imperial ? 'gal' : 'l'"/>
    <text style="caption" x="494" y="662" text="HOURS"/>
    <text style="number" x="660" y="662" value="hours" format="%.0f"/>

    <!-- warning lamps; some variants have one more -->
    <style name="lamp" width="114.5" height="36" size="17"/>
    <style name="red" value="1" color="white" background="red"/>
    <style name="amber" value="1" color="black" background="amber"/>
    <lamp style="lamp" x="6" y="574" text="OIL PRESS" value="[Lamp Oil Pressure]"><case style="red"/></lamp>
    <lamp style="lamp" x="124.3" y="574" text="OIL TEMP" value="[Lamp Oil Temperature]"><case style="red"/></lamp>
    <lamp style="lamp" x="242.6" y="574" text="COOLANT" value="[Lamp Coolant]"><case style="red"/></lamp>
    <lamp style="lamp" x="360.9" y="574" text="OVERSPEED" value="[Lamp Overspeed]"><case style="red"/></lamp>
    <lamp style="lamp" x="6" y="616" text="GENERATOR" value="[Lamp Generator]"><case style="red"/></lamp>
    <lamp style="lamp" x="124.3" y="616" text="FUEL PRESS" value="[Lamp Fuel Pressure]"><case style="red"/></lamp>
    <lamp style="lamp" x="242.6" y="616" text="EXH GAS" value="[Lamp Exhaust Gas]"><case style="amber"/></lamp>
    <lamp style="lamp" x="360.9" y="616" text="FUEL LOW" value="[Lamp Low Fuel]"><case style="amber"/></lamp>
    <lamp style="lamp" x="6" y="658" text="LANE A" value="[Lamp Lane A]"><case style="amber"/></lamp>
    <lamp style="lamp" x="124.3" y="658" text="LANE B" value="[Lamp Lane B]"><case style="amber"/></lamp>
    <lamp style="lamp" x="242.6" y="658" text="TOW" value="[Lamp Tow]" visible="hasTow"><case style="amber"/></lamp>
</view>
