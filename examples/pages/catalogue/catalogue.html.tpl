{include header.tpl}<h1>{htmlspecialchars title}</h1>
<p>{count} products</p>
<ul>{dynamic p,products}
  <li{optional p::*::stock 0} class="sold-out"{/optional}>
    <a href="/product/{rawurlencode p::*::id}">{htmlspecialchars p::*::title}</a>, {p::*::kilos} kg, {p::*::price} €{optional p::*::note}
    <em>{htmlspecialchars p::*::note}</em>{/optional}{optional p::*::labels}
    ({dynamic l,p::*::labels}{!optional l::[*] 0}, {/optional}{htmlspecialchars l::*}{/dynamic}){/optional}
  </li>{/dynamic}
</ul>
{include paging.tpl}</body>
</html>
