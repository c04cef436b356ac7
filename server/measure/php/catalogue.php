<?php include __DIR__ . '/header.php' ?>
<?php if ($searched): ?>
<h1>Results for “<?= htmlspecialchars($query) ?>”</h1>
<?php if (!$categories): ?><p>Nothing here has that name. <a href="./">See everything</a></p><?php endif ?>
<?php else: ?>
<section class="hero">
  <h1><?= htmlspecialchars($shop['claim']) ?></h1>
  <?php if ($news): ?>
  <ul>
    <?php foreach (array_reverse($news) as $item): ?><li><time><?= htmlspecialchars($item['day']) ?></time> <?= htmlspecialchars($item['text']) ?></li>
    <?php endforeach ?>
  </ul>
  <?php endif ?>
</section>
<?php endif ?>
<nav>
  <?php foreach ($categories as $key => $category): ?><?php if ($key > 0): ?>·<?php endif ?>
  <a href="#<?= rawurlencode($category['key']) ?>"><?= htmlspecialchars($category['name']) ?></a>
  <?php endforeach ?>
</nav>
<?php foreach ($categories as $category): ?>
<section id="<?= htmlspecialchars($category['key']) ?>">
  <h2><?= htmlspecialchars($category['name']) ?></h2>
  <div class="products">
    <?php foreach ($category['products'] as $product): ?>
    <a class="product" href="product?item=<?= rawurlencode($product['key']) ?>">
      <?php if (isset($product['badge'])): ?><b><?= htmlspecialchars($product['badge']) ?></b><?php endif ?>
      <img src="<?= rawurlencode($category['key']) ?>.svg" alt="" style="background: <?= htmlspecialchars($product['tint']) ?>">
      <h3><?= htmlspecialchars($product['name']) ?></h3>
      <p><?= $product['blurb'] ?? $category['blurb'] ?? 'Ask us about this one.' ?></p>
      <p class="price">
        € <?= htmlspecialchars($product['price']) ?>
        <?php if (!$product['stock']): ?><i>sold out</i><?php endif ?>
        <?php if ($product['stock'] === 1): ?><i>the last one</i><?php endif ?>
      </p>
    </a>
    <?php endforeach ?>
  </div>
</section>
<?php endforeach ?>
<?php include __DIR__ . '/footer.php' ?>
