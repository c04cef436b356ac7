{include header.tpl}
{optional searched}
<h1>Results for “{htmlspecialchars query}”</h1>
{!optional categories}<p>Nothing here has that name. <a href="./">See everything</a></p>{/optional}
{/optional}
{!optional searched}
<section class="hero">
  <h1>{htmlentities shop::claim}</h1>
  {optional news}
  <ul>
    {rdynamic item,news}<li><time>{htmlspecialchars item::*::day}</time> {htmlspecialchars item::*::text}</li>
    {/rdynamic}
  </ul>
  {/optional}
</section>
{/optional}
<nav>
  {dynamic category,categories}{!optional category::[*] 0}·{/optional}
  <a href="#{rawurlencode category::*::key}">{htmlspecialchars category::*::name}</a>
  {/dynamic}
</nav>
{dynamic category,categories}
<section id="{htmlspecialchars category::*::key}">
  <h2>{htmlspecialchars category::*::name}</h2>
  <div class="products">
    {dynamic product,category::*::products}
    <a class="product" href="product?item={rawurlencode product::*::key}">
      {optional product::*::badge}<b>{htmlspecialchars product::*::badge}</b>{/optional}
      <img src="{rawurlencode category::*::key}.svg" alt="" style="background: {htmlspecialchars product::*::tint}">
      <h3>{htmlspecialchars product::*::name}</h3>
      <p>{product::*::blurb category::*::blurb 'Ask us about this one.'}</p>
      <p class="price">
        € {htmlspecialchars product::*::price}
        {!optional product::*::stock}<i>sold out</i>{/optional}
        {optional product::*::stock 1}<i>the last one</i>{/optional}
      </p>
    </a>
    {/dynamic}
  </div>
</section>
{/dynamic}
{include footer.tpl}
