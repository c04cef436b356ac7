<!doctype html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title><?php if (isset($title)): ?><?= htmlspecialchars($title) ?> – <?php endif ?><?= htmlspecialchars($shop['name']) ?></title>
<link rel="stylesheet" href="shop.css">
<link rel="icon" href="ink.svg">
<!-- The shop's own name: addslashes would not do for a visitor's words. -->
<script>const shop = '<?= addslashes($shop['name']) ?>'</script>
<script src="shop.js"></script>
</head>
<body>
<header>
  <a class="name" href="./"><?= htmlspecialchars($shop['name']) ?></a>
  <a href="guestbook">Guest book</a>
  <form action="./">
    <input type="search" name="query" value="<?= htmlspecialchars($query) ?>" aria-label="Search">
    <button>Search</button>
  </form>
</header>
<main>
