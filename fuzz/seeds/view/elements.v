<view width="400" height="300" background="#102030" font="Sans">
<define name="d" value="clamp(a / 2, -1, 5) + first(b, 3) % 4"/>
<style name="s" color="#80ff0000" thickness="2"/>
<group x="10" y="a" rotate="d * 10" scale="0.5" opacity="0.5" visible="a &gt; -100">
<line x="0" y="0" x2="a" y2="5" style="s"/><polyline points="0,0; a,9; 3,b" closed="1"/>
<polygon points="0,0; 9,0; 4,4; 9,9; 0,9" fill="#ffffff" stroke="#000000"/>
<rectangle x="1" y="1" width="30" height="a" corner="3" stroke="#00ff00"/></group>
<circle x="9" y="9" radius="abs(a)"/><arc x="9" y="9" radius="5" start="0" sweep="a * 100"/>
<ring x="9" y="9" radius="5" inner="2" start="-90" sweep="361"/>
<text x="1" y="1" value="a" format="%+05.1f %%" size="12"><case when="b" text="x"/></text>
<text x="1" y="1" text="=b ? 'one' : 'other'" align="right"/>
<gauge x="50" y="50" radius="40" value="a" min="0" max="10" major="2" minor="0.5" format="%d"
 state="b" label="L"><range from="0" to="d" color="#00ff00"/><mark at="3" color="#ff0000"/></gauge>
<bar x="1" y="1" width="90" height="9" value="a" value2="b" min="9" max="-9" major="1" look="fill"
 labelFormat="%.1f" format="%.1f" unit="u"><range from="0" to="1" color="#ff0000"/></bar>
<lamp x="1" y="1" width="9" height="9" value="a" text="A|B"><case value="1" text="C"/></lamp>
<annunciator x="1" y="1" width="9" height="9" rows="b"><message when="a" text="m"/></annunciator>
<tape x="1" y="1" width="90" height="90" value="a" span="10" major="5" minor="1" format="%.0f"
 orientation="horizontal"><range from="0" to="5" color="#ff0000"/><mark at="b" color="#00ff00"/></tape>
</view>
