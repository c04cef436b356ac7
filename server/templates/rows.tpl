<h1>{htmlspecialchars token}</h1>
<table>{dynamic row,rows}
  <tr><td>{row::[*]}</td><td>{row::*::id}</td><td>{htmlspecialchars row::*::name}</td><td>{row::*::price}</td>
    {optional row::*::note}<td>{htmlspecialchars row::*::note}</td>{/optional}<td>{token}</td></tr>{/dynamic}
</table>
