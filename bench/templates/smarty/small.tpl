<!DOCTYPE html>
<html lang="{$language nofilter}">
<head>
  <meta charset="utf-8">
  <title>{$title} - {$site}</title>
  <link rel="stylesheet" href="/assets/main.css">
  <link rel="canonical" href="https://www.example.org/pages/{$slug|escape:'url' nofilter}">
</head>
<body>
  <header>
    <p>Signed in as <a href="/account/{$user.id nofilter}">{$user.name}</a>.</p>
  </header>
  <main>
    <h1>{$title}</h1>
    {if $notice}
    <p class="notice">{$notice}</p>
    {/if}
    <p>Your basket holds {$basket.items nofilter} items for {$basket.total nofilter}. We keep them for a day, so that you can
      look round in peace. <a href="/basket">Show the basket</a> or <a href="/checkout">pay for it</a>.</p>
    <p>All prices include taxes. Parcels leave our house on the next working day and arrive within two or
      three days more. What you do not like you may send back within thirty days.</p>
  </main>
  <footer>
    <a href="/terms">Terms</a> <a href="/privacy">Privacy</a> <a href="/contact">Contact</a>
    <p>Shop of {$site}, {$year nofilter}</p>
  </footer>
</body>
</html>
