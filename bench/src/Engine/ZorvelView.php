<?php

declare(strict_types=1);

namespace Zorvel\Bench\Engine;

use Zorvel\View;

/** The view with a bundle. */
final class ZorvelView extends Zorvel
{
    private readonly View $view;

    public function __construct(string $templates, string $compiled)
    {
        parent::__construct($templates, $compiled);
        $this->view = View::bundled(ZorvelBundle::bundle($templates, $compiled));
    }

    public function render(string $template, array $data): string
    {
        return $this->view->render("$template.html", $data);
    }
}
