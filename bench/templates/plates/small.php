<!DOCTYPE html>
<html lang="<?= $language ?>">
<head>
  <meta charset="utf-8">
  <title><?= $this->e($title) ?> - <?= $this->e($site) ?></title>
  <link rel="stylesheet" href="/assets/main.css">
  <link rel="canonical" href="https://www.example.org/pages/<?= rawurlencode($slug) ?>">
</head>
<body>
  <header>
    <p>Signed in as <a href="/account/<?= $user['id'] ?>"><?= $this->e($user['name']) ?></a>.</p>
  </header>
  <main>
    <h1><?= $this->e($title) ?></h1>
    <?php if ($notice): ?>
    <p class="notice"><?= $this->e($notice) ?></p>
    <?php endif ?>
    <p>Your basket holds <?= $basket['items'] ?> items for <?= $basket['total'] ?>. We keep them for a day, so that you can
      look round in peace. <a href="/basket">Show the basket</a> or <a href="/checkout">pay for it</a>.</p>
    <p>All prices include taxes. Parcels leave our house on the next working day and arrive within two or
      three days more. What you do not like you may send back within thirty days.</p>
  </main>
  <footer>
    <a href="/terms">Terms</a> <a href="/privacy">Privacy</a> <a href="/contact">Contact</a>
    <p>Shop of <?= $this->e($site) ?>, <?= $year ?></p>
  </footer>
</body>
</html>
