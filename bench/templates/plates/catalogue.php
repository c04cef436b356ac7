<h1><?= $this->e($title) ?></h1>
<ul class="catalogue">
  <?php foreach ($rows as $key => $row): ?>
  <li id="row-<?= $key ?>">
    <a href="/products/<?= rawurlencode($row['slug']) ?>"><?= $this->e($row['name']) ?></a>
    <p><?= $this->e($row['description']) ?></p>
    <span class="number"><?= $row['number'] ?></span>
    <span class="price"><?= $row['price'] ?></span>
    <?php if ($row['sale']): ?><em>On sale</em><?php endif ?>
    <ul class="sizes"><?php foreach ($row['sizes'] as $size): ?><li><?= $size ?></li><?php endforeach ?></ul>
  </li>
  <?php endforeach ?>
</ul>
