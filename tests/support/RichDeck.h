// A deck with elements and attributes of nearly every kind, for tests that go through all of it.
#pragma once

#include <string_view>

namespace lumnis::test {

inline constexpr std::string_view theRichDeck = R"deck(<?xml version="1.0"?>
<!DOCTYPE wml PUBLIC "-//WAPFORUM//DTD WML 1.2//EN" "wml12.dtd">
<?p http://d?>
<wml><head><access domain="x.com" path="/a$$"/><meta http-equiv="Expires" content="0"/></head>
<template><do type="prev"><prev/></do></template>
<card id="c" title="$(t:e)" newcontext="true" ordered="false">
<onevent type="ontimer"><go href="http://www.x.com/$v" method="post"><postfield name="a" value="$b"/>
</go></onevent><timer name="t" value="10"/>
<p align="center" mode="nowrap">a  b$(v)&#233;<br/><img src="i" alt="i" width="50%"/>
<select name="s" ivalue="1"><optgroup title="g"><option value="1">a  b</option></optgroup></select>
<input name="n" type="password" maxlength="5"/><a href="#c">x<br/>y</a><![CDATA[$]]]]></p>
<pre xml:space="preserve"> z </pre><p><table columns="2"><tr><td>1</td><td/></tr></table></p>
</card></wml>
)deck";

}  // namespace lumnis::test
