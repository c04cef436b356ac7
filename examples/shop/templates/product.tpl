{include header.tpl}
<article class="detail" data-name="{htmlspecialchars product::name}">
  <img src="{rawurlencode category::key}.svg" alt="" style="background: {htmlspecialchars product::tint}">
  <div>
    <a href="./#{rawurlencode category::key}">{htmlspecialchars category::name}</a>
    <h1>{htmlspecialchars product::name}</h1>
    <p>{product::blurb category::blurb 'Ask us about this one.'}</p>
    <p class="price">€ {htmlspecialchars product::price}</p>
    {!optional product::stock}<p>Sold out; we expect more.</p>{/optional}
    {optional product::stock}
    <p>{product::stock} in the shop.
      <a href="mailto:orders@example.org?subject={rawurlencode product::name}">Order by mail</a></p>
    {/optional}
  </div>
</article>
{include footer.tpl}
