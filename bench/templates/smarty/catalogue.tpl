<h1>{$title}</h1>
<ul class="catalogue">
  {foreach $rows as $key => $row}
  <li id="row-{$key nofilter}">
    <a href="/products/{$row.slug|escape:'url' nofilter}">{$row.name}</a>
    <p>{$row.description}</p>
    <span class="number">{$row.number nofilter}</span>
    <span class="price">{$row.price nofilter}</span>
    {if $row.sale}<em>On sale</em>{/if}
    <ul class="sizes">{foreach $row.sizes as $size}<li>{$size nofilter}</li>{/foreach}</ul>
  </li>
  {/foreach}
</ul>
