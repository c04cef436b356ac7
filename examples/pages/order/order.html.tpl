<h1>Order {htmlspecialchars order::number}</h1>
<p>Dear {htmlspecialchars order::customer::name}{optional order::customer::company} of {htmlspecialchars order::customer::company}{/optional},
thank you for your order of <time datetime="{order::placed}">{htmlspecialchars date}</time>.</p>
<table>{dynamic l,order::lines}
  <tr><td>{l::*::amount} × {htmlspecialchars l::*::title}{optional l::*::gift}<br>with the card “{htmlspecialchars l::*::gift}”{/optional}</td><td>{l::*::sum} €</td></tr>{/dynamic}
  <tr><th>Total</th><td>{htmlspecialchars total} €</td></tr>
</table>
<p>{optional order::shipping post}It comes by post.{/optional}{optional order::shipping pickup}It waits for you at the counter.{/optional}</p>
<ul>{dynamic hints}
  <li>{htmlspecialchars *}</li>{/dynamic}
</ul>
<p><a href="https://shop.example.org/account?email={rawurlencode order::customer::email}">Your orders</a></p>
