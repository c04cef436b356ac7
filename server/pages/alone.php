<?php

// A page of PHP alone, about as slow as those of pages.php: for the run without the extension.
declare(strict_types=1);

usleep(mt_rand(0, 10_000));
assert(is_string($_GET['token']));
echo str_repeat($_GET['token'], 1000);
